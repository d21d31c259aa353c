#include "frame/class_table.h"

namespace velmosav {

std::span<const CreatableClass> creatable_classes() noexcept {
#define AUTOMATION_CLASS(class_name) {ClassTraits<::_##class_name>::identity(), &create_##class_name},
  static const CreatableClass classes[] = {
#include "classes.def"
  };
  return classes;
}

const CreatableClass* find_class(REFCLSID clsid) noexcept {
  for (const CreatableClass& entry : creatable_classes()) {
    if (entry.identity.clsid == clsid) return &entry;
  }
  return nullptr;
}

}  // namespace velmosav
