#include "controls/scripted_control.h"

#include <algorithm>
#include <memory>

namespace host {
namespace {

constexpr wchar_t kRefusalText[] = L"Propriété protégée";

[[noreturn]] void refuse() { throw FakeObject::Error{kRefusal, L"Hôte", kRefusalText}; }

Variant copy_of(const VARIANT& value) {
  Variant copy;
  VariantCopy(copy.receive(), const_cast<VARIANT*>(&value));
  return copy;
}

}  // namespace

Log part(const Log& log, std::size_t first, std::size_t count) {
  const auto begin = log.begin() + static_cast<std::ptrdiff_t>(std::min(first, log.size()));
  const auto left = static_cast<std::size_t>(log.end() - begin);
  return {begin, begin + static_cast<std::ptrdiff_t>(std::min(count, left))};
}

std::wstring shown(const VARIANT& value) {
  switch (value.vt) {
    case VT_I2:
      return L"I2 " + std::to_wstring(value.iVal);
    case VT_I4:
      return L"I4 " + std::to_wstring(value.lVal);
    case VT_BOOL:
      return value.boolVal == VARIANT_TRUE ? L"BOOL true" : value.boolVal ? L"BOOL ?" : L"BOOL false";
    case VT_BSTR:
      return L"BSTR \"" + get(value.bstrVal) + L"\"";
    case VT_R8: {
      std::wstring digits = std::to_wstring(value.dblVal);
      digits.erase(digits.find_last_not_of(L'0') + 1);
      if (digits.back() == L'.' || digits.back() == L',') digits.pop_back();
      return L"R8 " + digits;
    }
    default:
      return L"VT " + std::to_wstring(value.vt);
  }
}

void add_property(const ComPtr<FakeObject>& object, const std::wstring& name, Variant initial) {
  const auto stored = std::make_shared<Variant>(std::move(initial));
  object->on_get(name, [stored](auto&) { return copy_of(stored->get()); });
  object->on_put(name, [stored, used = object.get()](const VARIANT& value) {
    used->log.back() += L" " + shown(value);
    *stored = copy_of(value);
  });
}

void refuse_get(const ComPtr<FakeObject>& object, const std::wstring& name) {
  object->on_get(name, [](auto&) -> Variant { refuse(); });
}

void refuse_put(const ComPtr<FakeObject>& object, const std::wstring& name) {
  object->on_put(name, [](const VARIANT&) { refuse(); });
}

::testing::AssertionResult is_refusal(HRESULT code) {
  const ErrorReport report = take_error();
  if (code != kRefusal) {
    return ::testing::AssertionFailure() << "HRESULT " << std::hex << static_cast<unsigned long>(code);
  }
  if (report.description != kRefusalText) {
    return ::testing::AssertionFailure() << "error text \"" << utf8(report.description) << '"';
  }
  return ::testing::AssertionSuccess();
}

}  // namespace host
