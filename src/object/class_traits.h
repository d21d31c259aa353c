// What is known of each class at compile time, from the list of classes.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

namespace velmosav {

/// One class of the library: its name and identifiers.
struct ClassIdentity {
  const wchar_t* name;
  const CLSID& clsid;
  const IID& iid;
};

template <class Interface>
struct ClassTraits;

#define AUTOMATION_CLASS(class_name)                                                \
  template <>                                                                       \
  struct ClassTraits<::_##class_name> {                                             \
    static const ClassIdentity& identity() noexcept {                               \
      static constexpr ClassIdentity value{L## #class_name, __uuidof(::class_name), \
                                           __uuidof(::_##class_name)};              \
      return value;                                                                 \
    }                                                                               \
  };
#include "classes.def"

/// Creates an instance of a class with one reference; defined by each class's own file.
#define AUTOMATION_CLASS(class_name) IDispatch* create_##class_name();
#include "classes.def"

}  // namespace velmosav
