// An object of the host with all members that the library uses, one of whose uses fails.
#pragma once

#include "support/fake_object.h"

namespace atomicity {

/// A label, button, column, grid, field and menu in one. Uses count from 1: properties read and put, methods
/// called; the one of number `fails_at` fails with kFailure (none for 0). The log tells the uses in order.
class FailingObject {
 public:
  explicit FailingObject(std::size_t fails_at);
  FailingObject(const FailingObject&) = delete;
  FailingObject& operator=(const FailingObject&) = delete;

  [[nodiscard]] IDispatch* get() const { return object_.get(); }
  [[nodiscard]] const std::vector<std::wstring>& log() const { return object_->log; }

  static constexpr HRESULT kFailure = static_cast<HRESULT>(0x80041235UL);

 private:
  void count() const;

  host::ComPtr<host::FakeObject> object_ = host::FakeObject::make();
  std::size_t fails_at_;
};

}  // namespace atomicity
