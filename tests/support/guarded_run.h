// A whole test program on guard pages: SAV_GUARD=1 ./sav test.
#pragma once

namespace host {

/// From now on every block of the platform's allocator, and every block of the registered DLL's C run-time,
/// ends at the end of a page; see guard_pages.h. The second holds until a test unloads the DLL; and a program
/// that needs more blocks than there is room for has the rest on ordinary pages.
void guard_all_memory();

}  // namespace host
