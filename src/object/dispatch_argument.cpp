#include "object/dispatch_argument.h"

#include <cstring>

#include "automation/fault.h"

namespace velmosav {
namespace {

/// Where a VARIANT of a plain type holds its value: all of them in the same place.
void* data_of(VARIANT& value) noexcept { return &value.lVal; }

/// A value that the platform cannot take is an argument of another type.
void check_argument(HRESULT code) {
  if (code == E_INVALIDARG || code == DISP_E_BADVARTYPE) code = DISP_E_TYPEMISMATCH;
  if (FAILED(code)) raise(code);
}

void convert(VARIANT& target, VARIANT& source, LCID locale, VARTYPE type) {
  if (source.vt == VT_NULL || !is_convertible(source)) raise(DISP_E_TYPEMISMATCH);
  check_argument(VariantChangeTypeEx(&target, &source, locale, VARIANT_LOCALBOOL, type));
}

bool same_record(IRecordInfo* given, const DispatchParameter& parameter) {
  if (given == parameter.record_info.get()) return true;
  GUID id;
  return given && SUCCEEDED(given->GetGuid(&id)) && id == parameter.record;
}

}  // namespace

void DispatchArgument::prepare(const DispatchParameter& parameter, VARIANT* argument, LCID locale) {
  if (!argument || is_missing(*argument)) return prepare_missing(parameter, argument != nullptr);
  VARIANT& variable = dereferenced(*argument);
  by_value_ = &variable == argument && !(argument->vt & VT_BYREF);
  if (parameter.type == VT_VARIANT) return prepare_variant(parameter, variable);
  if (parameter.type == VT_RECORD) return prepare_record(parameter, variable);
  if (parameter.type & VT_ARRAY) return prepare_array(parameter, variable);
  prepare_typed(parameter, variable, locale);
}

void DispatchArgument::prepare_missing(const DispatchParameter& parameter, bool given) {
  VARIANT& value = converted_.get();
  if (parameter.type == VT_VARIANT && (parameter.optional || given)) {
    value.vt = VT_ERROR;
    value.scode = DISP_E_PARAMNOTFOUND;
    value_ = &value;
    return;
  }
  if (!parameter.optional) raise(DISP_E_PARAMNOTOPTIONAL);
  if (parameter.default_value.get().vt != VT_EMPTY) {
    auto* source = const_cast<VARIANT*>(&parameter.default_value.get());
    check(VariantChangeTypeEx(&value, source, LOCALE_USER_DEFAULT, 0, parameter.type));
  } else {
    value.vt = parameter.type;
    value.dblVal = 0;
  }
  value_ = data_of(value);
}

VARIANT& DispatchArgument::copy_of(VARIANT& argument) {
  if (!is_convertible(argument)) raise(DISP_E_TYPEMISMATCH);
  check_argument(VariantCopy(converted_.receive(), &argument));
  return converted_.get();
}

void DispatchArgument::prepare_variant(const DispatchParameter& parameter, VARIANT& argument) {
  // By reference the method gets the caller's own variable; a typed variable stays behind its reference.
  value_ = parameter.by_reference && by_value_ ? &copy_of(argument) : &argument;
}

void DispatchArgument::prepare_record(const DispatchParameter& parameter, VARIANT& argument) {
  if ((argument.vt & ~VT_BYREF) != VT_RECORD || !same_record(argument.pRecInfo, parameter)) {
    raise(DISP_E_TYPEMISMATCH);
  }
  value_ = argument.pvRecord;
}

void DispatchArgument::prepare_array(const DispatchParameter& parameter, VARIANT& argument) {
  if (argument.vt == (VT_BYREF | parameter.type)) {
    value_ = argument.pparray;
  } else if (argument.vt == parameter.type) {
    value_ = &(by_value_ ? copy_of(argument) : argument).parray;
  } else {
    raise(DISP_E_TYPEMISMATCH);
  }
}

void DispatchArgument::prepare_typed(const DispatchParameter& parameter, VARIANT& argument, LCID locale) {
  if (argument.vt == (VT_BYREF | parameter.type)) {
    if (!argument.byref && !parameter.by_reference) raise(DISP_E_TYPEMISMATCH);
    value_ = argument.byref;
    return;
  }
  if (argument.vt == parameter.type) {
    value_ = data_of(parameter.by_reference && by_value_ ? copy_of(argument) : argument);
    return;
  }
  convert(converted_.get(), argument, locale, parameter.type);
  value_ = data_of(converted_.get());
  if (parameter.by_reference && !by_value_) {
    variable_ = &argument;
    before_ = converted_.get();
  }
}

std::uint32_t* DispatchArgument::push(const DispatchParameter& parameter,
                                      std::uint32_t* words) const noexcept {
  if (parameter.by_reference) {
    *words = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(value_));
    return words + 1;
  }
  switch (parameter.type) {
    case VT_UI1:
      *words = *static_cast<const BYTE*>(value_);
      break;
    case VT_I2:
    case VT_BOOL:
      *words = static_cast<std::uint32_t>(*static_cast<const short*>(value_));
      break;
    default:
      std::memcpy(words, value_, parameter.words() * sizeof *words);
      break;
  }
  return words + parameter.words();
}

bool DispatchArgument::changed() const noexcept {
  // Another text has another address. Only a list of codes is edited where it is, and what was converted
  // from a number, a date or a Boolean holds no quoted code to be taken out.
  return std::memcmp(&before_.lVal, &converted_.get().lVal, before_.vt == VT_R8 ? 8 : 4) != 0;
}

void DispatchArgument::write_back() {
  if (variable_ && changed()) store_variable(*variable_, std::move(converted_));
}

}  // namespace velmosav
