// The platform's description of a record, needed where an array or a VARIANT must carry one.
#pragma once

#include "automation/com_ptr.h"
#include "records/layout.h"

namespace velmosav {

/// From the library's own type library; kept for the process, and never used to copy or clear a record.
ComPtr<IRecordInfo> record_info(const GUID& record);

}  // namespace velmosav
