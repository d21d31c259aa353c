// The class object of each class.
#pragma once

#include "frame/class_table.h"

namespace velmosav {

/// Answers DllGetClassObject for a class of the library.
HRESULT create_class_factory(const CreatableClass& creatable, REFIID iid, void** factory) noexcept;

}  // namespace velmosav
