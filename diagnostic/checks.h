// The checks, subject by subject, each of which adds its lines to the report.
#pragma once

#include "report.h"

namespace diagnostic {

/// Is the library registered, once, completely, from a file that is there, is its own and can be loaded?
void check_registration(Report& report);
/// The document classes, the menu component and the settings that the library works with.
void check_environment(Report& report);
/// Each class, created by name and released.
void check_classes(Report& report);

/// The command that registers a DLL on this machine; `dll` is its path.
std::wstring registration_command(const std::wstring& dll);
/// The path of a file beside this program where it is there, else its name.
std::wstring beside_program(const std::wstring& name);

}  // namespace diagnostic
