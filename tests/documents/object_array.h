// Arrays of the host's objects, as equipment items travel.
#pragma once

#include <vector>

#include "support/fake_object.h"
#include "support/records.h"

namespace host {

/// Fake objects that a test keeps one reference on.
class Objects {
 public:
  explicit Objects(std::size_t count) {
    while (objects_.size() < count) objects_.push_back(FakeObject::make());
  }

  /// A reference of its own, as an array holds it.
  IDispatch* hand_over(std::size_t index) { return ComPtr<IDispatch>::copy(objects_[index].get()).detach(); }
  [[nodiscard]] IDispatch* at(std::size_t index) const { return objects_[index].get(); }

  [[nodiscard]] std::vector<long> references() const {
    std::vector<long> result;
    for (const auto& object : objects_) result.push_back(object->references());
    return result;
  }

  /// An array of these dimensions that holds a reference on each object, the first dimension running fastest.
  /// `marked`: the array says itself that it holds objects.
  SAFEARRAY* array_of(std::vector<SAFEARRAYBOUND> bounds, bool marked = true) {
    const auto dimensions = static_cast<UINT>(bounds.size());
    SAFEARRAY* array =
        SafeArrayCreate(static_cast<VARTYPE>(marked ? VT_DISPATCH : VT_I4), dimensions, bounds.data());
    // One that is not marked says nothing of its elements but their size.
    if (!marked) array->fFeatures = static_cast<USHORT>(array->fFeatures & ~FADF_HAVEVARTYPE);
    for (unsigned long i = 0; i < objects_.size(); ++i) element<IDispatch*>(array, i) = hand_over(i);
    return array;
  }

 private:
  std::vector<ComPtr<FakeObject>> objects_;
};

/// Frees an array that a test took back, with the objects it still holds.
inline void free_objects(SAFEARRAY*& array, unsigned long count) {
  for (unsigned long i = 0; i < count; ++i) {
    if (IDispatch* object = std::exchange(element<IDispatch*>(array, i), nullptr)) object->Release();
  }
  SafeArrayDestroy(std::exchange(array, nullptr));
}

}  // namespace host
