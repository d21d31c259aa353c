#include "contract/constant_access.h"

#include <type_traits>

namespace contract {
namespace {

VARTYPE type_of(const Value& value) {
  static constexpr VARTYPE kTypes[] = {VT_UI1, VT_I2, VT_I4, VT_BOOL, VT_BSTR};
  static_assert(std::size(kTypes) == std::variant_size_v<Value>);
  return kTypes[value.index()];
}

/// Calls `action` with the field of `value` that its VARTYPE selects.
template <class AnyVariant, class Action>
HRESULT with_field(AnyVariant& value, Action action) {
  switch (value.vt) {
    case VT_UI1:
      return action(value.bVal);
    case VT_I2:
      return action(value.iVal);
    case VT_I4:
      return action(value.lVal);
    case VT_BOOL:
      return action(value.boolVal);
    case VT_BSTR:
      return action(value.bstrVal);
    default:
      return E_UNEXPECTED;
  }
}

template <class Function>
Function slot_at(IDispatch* object, SHORT offset) {
  void** table = *reinterpret_cast<void***>(object);
  return reinterpret_cast<Function>(table[static_cast<UINT>(offset) / kSlotSize]);
}

}  // namespace

host::Variant to_variant(const Value& value) {
  host::Variant result;
  VARIANT& raw = result.get();
  raw.vt = type_of(value);
  if (const auto* byte = std::get_if<Byte>(&value)) raw.bVal = byte->value;
  if (const auto* integer = std::get_if<Integer>(&value)) raw.iVal = integer->value;
  if (const auto* number = std::get_if<Long>(&value)) raw.lVal = number->value;
  if (const auto* boolean = std::get_if<Boolean>(&value))
    raw.boolVal = boolean->value ? VARIANT_TRUE : VARIANT_FALSE;
  if (const auto* text = std::get_if<Text>(&value)) raw.bstrVal = Bstr(text->value).detach();
  return result;
}

host::Variant other_than(const Value& value, std::size_t member) {
  host::Variant result;
  VARIANT& raw = result.get();
  raw.vt = type_of(value);
  const auto number = static_cast<unsigned char>(member + 1);
  if (const auto* byte = std::get_if<Byte>(&value)) {
    raw.bVal = byte->value == number ? static_cast<unsigned char>(~number) : number;
  }
  if (std::holds_alternative<Integer>(value)) raw.iVal = static_cast<short>(-20000 - number);
  if (std::holds_alternative<Long>(value)) raw.lVal = -2000000000 - number;
  if (const auto* boolean = std::get_if<Boolean>(&value)) {
    raw.boolVal = boolean->value ? VARIANT_FALSE : VARIANT_TRUE;
  }
  if (std::holds_alternative<Text>(value)) {
    raw.bstrVal = Bstr(L"\u00E9l\u00E9ment " + std::to_wstring(member)).detach();
  }
  return result;
}

::testing::AssertionResult same(const VARIANT& expected, const VARIANT& found) {
  if (expected.vt != found.vt) {
    return ::testing::AssertionFailure() << "VARTYPE " << found.vt << " instead of " << expected.vt;
  }
  bool equal = false;
  with_field(expected, [&](const auto& wanted) {
    return with_field(found, [&](const auto& given) {
      if constexpr (std::is_same_v<decltype(wanted), decltype(given)>) {
        if constexpr (std::is_same_v<std::decay_t<decltype(given)>, BSTR>) {
          equal = velmosav::view(wanted) == velmosav::view(given);
        } else {
          equal = wanted == given;
        }
      }
      return S_OK;
    });
  });
  if (equal) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << '"' << utf8(velmosav::to_text(found).view()) << "\" instead of \""
                                       << utf8(velmosav::to_text(expected).view()) << '"';
}

Instance::Instance(const Class& entry) : class_(&entry), object_(host::create_dispatch(entry.name)) {
  const auto info = vtable_face(entry.name);
  if (!info || !object_) return;
  EXPECT_EQ(S_OK, object_->QueryInterface(attributes_of(info)->guid, early_.receive_void()));
  for (UINT i = 0; i < 2 * entry.constants.size(); ++i) {
    const auto function = function_of(info, i);
    (function->invkind == INVOKE_PROPERTYGET ? gets_ : puts_).push_back(function->oVft);
  }
  EXPECT_EQ(entry.constants.size(), gets_.size());
  EXPECT_EQ(entry.constants.size(), puts_.size());
}

DISPID Instance::id_of(std::size_t member) const {
  std::wstring name = class_->constants[member].name;
  LPOLESTR names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  EXPECT_EQ(S_OK, object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)) << utf8(name);
  return id;
}

host::Variant Instance::read_late(std::size_t member) const {
  host::Variant result;
  DISPPARAMS none{};
  EXPECT_EQ(S_OK, object_->Invoke(id_of(member), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                  result.receive(), nullptr, nullptr));
  return result;
}

host::Variant Instance::read_early(std::size_t member) const {
  host::Variant result;
  result.get().vt = type_of(class_->constants[member].initial);
  result.get().bstrVal = nullptr;
  EXPECT_EQ(S_OK, with_field(result.get(), [&](auto& field) {
              using Get = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, decltype(&field));
              return slot_at<Get>(early_.get(), gets_.at(member))(early_.get(), &field);
            }));
  return result;
}

HRESULT Instance::write_late(std::size_t member, const VARIANT& value) {
  VARIANT argument = value;
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS arguments{&argument, &named, 1, 1};
  return object_->Invoke(id_of(member), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &arguments,
                         nullptr, nullptr, nullptr);
}

HRESULT Instance::write_early(std::size_t member, const VARIANT& value) {
  return with_field(value, [&](const auto& field) {
    using Put = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, std::decay_t<decltype(field)>);
    return slot_at<Put>(early_.get(), puts_.at(member))(early_.get(), field);
  });
}

}  // namespace contract
