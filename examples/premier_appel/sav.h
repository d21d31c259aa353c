// What a C++ host needs around the generated header: owners for texts and objects, failures as exceptions,
// and arrays of records. Copy it beside a host of your own.
//
//   sav::Object<_Outil> outil = sav::create<_Outil>(L"Outil");
//   double ht = 0;
//   sav::check(outil->DLL_GetAmountHTByTTC(20, 120, 2, &ht));
#pragma once

#include <windows.h>
#include <ole2.h>
#include <VelmoSAV_DLL14.h>

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace sav {

/// Owns a text. Its address is a place for a result; what it held before is freed.
class Text {
 public:
  Text() = default;
  Text(const wchar_t* text) : text_(SysAllocString(text)) {
    if (!text_) throw std::bad_alloc();
  }
  Text(Text&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(text_); }

  operator BSTR() const { return text_; }
  BSTR* operator&() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  /// For an argument that is read and replaced.
  BSTR* in_out() { return &text_; }

 private:
  BSTR text_ = nullptr;
};

/// Owns one reference.
template <class Interface>
class Object {
 public:
  explicit Object(Interface* owned = nullptr) : object_(owned) {}
  Object(Object&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object() {
    if (object_) object_->Release();
  }

  Interface* operator->() const { return object_; }
  [[nodiscard]] Interface* get() const { return object_; }

 private:
  Interface* object_;
};

/// A failed call: its code, and the French text that the library left.
class Failure : public std::runtime_error {
 public:
  Failure(HRESULT failed, const std::string& text) : std::runtime_error(text), code(failed) {}
  const HRESULT code;
};

inline std::string utf8(BSTR text) {
  const int length = static_cast<int>(SysStringLen(text));
  std::string result(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr)),
      '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(), static_cast<int>(result.size()), nullptr,
                      nullptr);
  return result;
}

/// Throws what a failed call reported: call it with the HRESULT of the call, and before any other.
inline void check(HRESULT code) {
  if (SUCCEEDED(code)) return;
  IErrorInfo* found = nullptr;
  Text text;
  if (GetErrorInfo(0, &found) == S_OK) Object<IErrorInfo>(found)->GetDescription(&text);
  throw Failure(code, utf8(text));
}

/// Creates a class of the library, seen through its own interface.
template <class Interface>
Object<Interface> create(const wchar_t* class_name) {
  CLSID clsid;
  check(CLSIDFromProgID((std::wstring(L"VelmoSAV_DLL14.") + class_name).c_str(), &clsid));
  void* object = nullptr;
  check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), &object));
  return Object<Interface>(static_cast<Interface*>(object));
}

/// Gives a text field of a record another value.
inline void set(BSTR& field, const wchar_t* text) {
  if (!SysReAllocString(&field, text)) throw std::bad_alloc();
}

/// Dimensions an array field that was never dimensioned: elements 0 to count - 1, all of them zero.
template <class Record>
void dimension(SAFEARRAY*& field, ULONG count) {
  check(SafeArrayAllocDescriptor(1, &field));
  field->cbElements = sizeof(Record);
  field->rgsabound[0].cElements = count;
  check(SafeArrayAllocData(field));
}

/// An element of an array of records, counted from 0.
template <class Record>
Record& element(SAFEARRAY* array, ULONG index) {
  if (!array || array->cbElements != sizeof(Record) || index >= array->rgsabound[0].cElements)
    throw std::out_of_range("no such element");
  return static_cast<Record*>(array->pvData)[index];
}

/// A text as an argument of type VARIANT. The text stays its owner's.
inline VARIANT variant(const Text& text) {
  VARIANT value{};
  value.vt = VT_BSTR;
  value.bstrVal = text;
  return value;
}
inline VARIANT variant(long number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}
/// An optional argument of type VARIANT that is left out.
inline VARIANT missing() {
  VARIANT value{};
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

}  // namespace sav
