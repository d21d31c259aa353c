// Looks on while a call runs: a crash, an exception that leaves the library or a call without end is printed
// with what is needed to repeat it, and ends the program.
#pragma once

#include <cstdint>

namespace misuse::watch {

/// Exit codes of the program.
inline constexpr unsigned kCrashed = 101, kEndless = 102;

/// Starts to look on; `seed` is printed with what is found.
void start(std::uint64_t seed);

/// The call that the main thread is in.
void enter(const wchar_t* class_name, const wchar_t* member, std::uint64_t number);
/// The call is over. True when it took more than one second of processor time.
bool leave();

}  // namespace misuse::watch
