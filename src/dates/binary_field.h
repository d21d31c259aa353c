// Loading a file into a binary field of the host's database.
#pragma once

#include "automation/text.h"

namespace velmosav {

/// Passes a file to the field's AppendChunk in blocks of 50000 bytes. False, with nothing passed, when there
/// is no field, no file name, or the file is empty. Faults: 53 missing file, 76 missing folder, 70 refused
/// access, 57 failed reading; a failure of the field is passed on.
bool load_file_into_field(IDispatch* field, std::wstring_view file);

}  // namespace velmosav
