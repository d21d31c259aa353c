// The little that an early-bound host needs: owners for texts and objects, and failures as exceptions.
#pragma once

#include <windows.h>
#include <ole2.h>

#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "console.h"

namespace facturation {

/// Owns a BSTR. A null BSTR is an empty text.
class Text {
 public:
  Text() = default;
  explicit Text(std::wstring_view text) : text_(allocate(text)) {}
  explicit Text(std::string_view utf8) : Text(std::wstring_view(to_utf16(utf8))) {}
  explicit Text(const char* utf8) : Text(std::string_view(utf8)) {}
  explicit Text(const std::string& utf8) : Text(std::string_view(utf8)) {}
  Text(Text&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Text& operator=(Text&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Text() { SysFreeString(text_); }

  [[nodiscard]] BSTR get() const { return text_; }
  [[nodiscard]] bool empty() const { return SysStringLen(text_) == 0; }
  [[nodiscard]] std::wstring_view view() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }

  /// The place where a method stores its result; frees what was there.
  BSTR* receive() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  BSTR release() { return std::exchange(text_, nullptr); }

 private:
  static BSTR allocate(std::wstring_view text) {
    const BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!copy) throw std::bad_alloc();
    return copy;
  }

  BSTR text_ = nullptr;
};

/// Owns one reference.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  explicit ComPtr(Interface* owned) : object_(owned) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  [[nodiscard]] Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  Interface** receive() { return &object_; }

 private:
  Interface* object_ = nullptr;
};

/// A failed call; what() is a French sentence with the error number, in UTF-8.
class ComFailure : public std::exception {
 public:
  explicit ComFailure(std::string message) : message_(std::move(message)) {}
  [[nodiscard]] const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string message_;
};

class Apartment {
 public:
  Apartment();
  ~Apartment() { CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

[[noreturn]] void fail(HRESULT result, IUnknown* object, REFIID iid, std::string_view operation);

/// Throws the failure of a method, with the error information that the object left.
template <class Interface>
void check(HRESULT result, const ComPtr<Interface>& object, std::string_view operation) {
  if (FAILED(result)) fail(result, object.get(), __uuidof(Interface), operation);
}

ComPtr<IUnknown> create(const wchar_t* prog_id, REFIID iid);

/// Creates an object by its ProgID, seen through the interface of the contract.
template <class Interface>
ComPtr<Interface> create(const wchar_t* prog_id) {
  ComPtr<IUnknown> object = create(prog_id, __uuidof(Interface));
  return ComPtr<Interface>(static_cast<Interface*>(std::exchange(*object.receive(), nullptr)));
}

}  // namespace facturation
