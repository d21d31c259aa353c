// Owner of one reference on a COM object.
#pragma once

#include "automation/platform.h"

#include <utility>

namespace velmosav {

template <class Interface>
class ComPtr {
 public:
  constexpr ComPtr() noexcept = default;
  constexpr ComPtr(std::nullptr_t) noexcept {}
  ComPtr(const ComPtr& other) noexcept : object_(other.object_) {
    if (object_) object_->AddRef();
  }
  ComPtr(ComPtr&& other) noexcept : object_(other.detach()) {}
  ~ComPtr() {
    if (object_) object_->Release();
  }
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over a reference that the caller owns.
  [[nodiscard]] static ComPtr attach(Interface* object) noexcept {
    ComPtr owner;
    owner.object_ = object;
    return owner;
  }
  /// Takes a new reference on an object that stays the caller's.
  [[nodiscard]] static ComPtr copy(Interface* object) noexcept {
    if (object) object->AddRef();
    return attach(object);
  }

  [[nodiscard]] Interface* get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  /// The place where a callee leaves a reference; any former reference is released first.
  [[nodiscard]] Interface** receive() noexcept {
    *this = nullptr;
    return &object_;
  }
  [[nodiscard]] void** receive_void() noexcept { return reinterpret_cast<void**>(receive()); }
  /// Gives the reference up to the caller.
  [[nodiscard]] Interface* detach() noexcept { return std::exchange(object_, nullptr); }

 private:
  Interface* object_ = nullptr;
};

}  // namespace velmosav
