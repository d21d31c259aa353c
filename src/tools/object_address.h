// An object that travels as the number of its address.
#pragma once

#include "automation/com_ptr.h"

namespace velmosav {

/// A new reference on the object at `address`; none for 0. An address where no object can be is recognised by
/// what the memory there holds (a readable vtable of code addresses) and answered with fault 91.
ComPtr<IDispatch> object_at(long address);

}  // namespace velmosav
