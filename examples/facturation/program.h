// The whole program, behind its arguments.
#pragma once

#include <string>
#include <vector>

namespace facturation {

enum ExitCode { kDone = 0, kSomeRefused = 1, kNothingDone = 2 };

/// Invoices what the folder of the arguments holds and prints the summary; returns the exit code.
int run(const std::vector<std::wstring>& arguments);

}  // namespace facturation
