// How a test reaches the library: as a host does, by ProgID, with texts and records in its own memory.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/text.h"
#include "automation/variant.h"

namespace host {

using velmosav::Bstr;
using velmosav::ComPtr;
using velmosav::Variant;

/// Creates a class by its ProgID "VelmoSAV_DLL14.<name>", early-bound; the test fails when it cannot.
ComPtr<IDispatch> create_dispatch(std::wstring_view class_name);

template <class Interface>
ComPtr<Interface> create(std::wstring_view class_name) {
  ComPtr<Interface> result;
  const auto object = create_dispatch(class_name);
  if (object) {
    EXPECT_EQ(S_OK, object->QueryInterface(__uuidof(Interface), result.receive_void()));
  }
  return result;
}

/// A text argument or result: converts from literals, frees itself, compares with literals.
class Text {
 public:
  Text() = default;
  Text(const wchar_t* text) : text_(std::wstring_view(text)) {}
  Text(std::wstring_view text) : text_(text) {}
  Text(const std::wstring& text) : text_(text) {}

  operator BSTR() const { return text_.get(); }
  BSTR* operator&() { return text_.receive(); }  // a result
  BSTR* in_out() { return &address_of(text_); }  // an argument by reference
  [[nodiscard]] std::wstring str() const { return std::wstring(text_.view()); }
  [[nodiscard]] BSTR detach() { return text_.detach(); }

  friend bool operator==(const Text& left, std::wstring_view right) { return left.text_.view() == right; }
  friend std::ostream& operator<<(std::ostream& stream, const Text& text);

 private:
  static BSTR& address_of(Bstr& text) { return reinterpret_cast<BSTR&>(text); }
  Bstr text_;
};

std::string utf8(std::wstring_view text);

/// Sets a text field of a record.
inline void set(BSTR& field, std::wstring_view text) { velmosav::assign(field, text); }
inline std::wstring get(BSTR field) { return std::wstring(velmosav::view(field)); }

/// VARIANT arguments.
Variant missing();
Variant null_value();
Variant text_value(std::wstring_view text);
Variant bool_value(bool value);
Variant object_value(IDispatch* object);

/// What a failed call left: number, source, French text. Reading it takes it off the thread.
struct ErrorReport {
  std::wstring source;
  std::wstring description;
};
ErrorReport take_error();

/// `code` is the run-time fault `number`, with error information whose source is the class and whose text is
/// not empty. For EXPECT_TRUE(is_fault(...)).
::testing::AssertionResult is_fault(HRESULT code, int number, std::wstring_view class_name);

/// A late-bound call by name; arguments in order. `result` may be null.
HRESULT call(IDispatch* object, const wchar_t* name, std::vector<Variant> arguments, VARIANT* result,
             EXCEPINFO* exception = nullptr);
HRESULT get_property(IDispatch* object, const wchar_t* name, VARIANT* result);
HRESULT put_property(IDispatch* object, const wchar_t* name, Variant value);

}  // namespace host
