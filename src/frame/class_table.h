// The classes that the DLL can create, from the list of classes.
#pragma once

#include <span>

#include "object/class_traits.h"

namespace velmosav {

struct CreatableClass {
  const ClassIdentity& identity;
  IDispatch* (*create)();  // one reference, null when memory lacks
};

std::span<const CreatableClass> creatable_classes() noexcept;

/// Null for a class that is not the library's.
const CreatableClass* find_class(REFCLSID clsid) noexcept;

}  // namespace velmosav
