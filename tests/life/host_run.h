// Hosts that end in a way of their own: each is a process of this program.
#pragma once

#include "automation/platform.h"

#include <string>

namespace life {

/// What a host answers that came to its end.
constexpr int kDone = 17;

/// Runs this program as the host of that name to its end; its exit code, or WAIT_TIMEOUT.
DWORD run_host(const std::string& name);

/// The host itself, in the process that run_host started.
int host_main(const std::string& name);

/// Loads and unloads the DLL so often instead of briefly, and writes the figures.
void run_long(int loads);

}  // namespace life
