// Where the DLL is that belongs to this test program: beside the build's programs, whatever is registered.
#pragma once

#include <string>

namespace host {

std::wstring library_path();
std::wstring library_folder();

}  // namespace host
