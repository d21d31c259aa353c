// A test program with the platform's own checks of its heaps: SAV_HEAP=1, as ./sav checks sets it.
#pragma once

namespace host {

/// After each test every heap of the process is validated: a test that damaged one fails. The platform must
/// have been told to mark what is behind a block and what is in a freed one (WINEDEBUG=warn+heap; on Windows
/// the GlobalFlag 0x70 in the program's image options): the program ends when bytes that are written there on
/// purpose are not found.
void check_heaps();

}  // namespace host
