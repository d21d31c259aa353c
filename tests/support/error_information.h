// Error information as an object of the host makes it.
#pragma once

#include "support/host.h"

namespace host {

/// What an object tells of its failure; it says nothing of what is null.
ComPtr<IErrorInfo> error_information(const wchar_t* source, const wchar_t* description);

/// Leaves it on the thread, as a failing object does.
void leave_error(const wchar_t* source, const wchar_t* description);

}  // namespace host
