// Files in the system's folder of temporary files.
#pragma once

#include <string>

namespace host {

/// Makes an empty file under a name that no other has; answers its path. The caller deletes it.
std::wstring make_temporary_file();

}  // namespace host
