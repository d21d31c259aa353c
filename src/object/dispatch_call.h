// Calling a vtable slot whose parameters are known only at run time.
#pragma once

#include "automation/platform.h"

#include <cstdint>

namespace velmosav {

/// Words on the stack beside the object itself.
inline constexpr unsigned kMostWords = 32;

/// Calls slot `index` of the object with `count` 32-bit words as arguments. On 32-bit Windows every argument
/// of a COM method is made of whole words and the method takes them off the stack, so the count says all.
HRESULT call_slot(IDispatch* object, unsigned index, const std::uint32_t* words, unsigned count);

}  // namespace velmosav
