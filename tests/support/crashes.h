// A test program that ends before its time says where, and in which test.
#pragma once

namespace host {

/// From now on a trap of the checks (see the preset of that name), any other exception that nobody handles
/// and an abort are printed with the test and the place, and end the program.
void report_crashes();

/// Exit code of a program that ended so.
inline constexpr unsigned kCrashed = 103;

/// What the checks must find, made on purpose: "overflow" of a number, "index" behind the end of a vector.
/// Comes back when nothing ended the program.
void commit_fault(const char* name);

}  // namespace host
