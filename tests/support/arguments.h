// Arguments of late-bound calls: lists of VARIANTs, and variables and records that are passed by reference.
#pragma once

#include <array>

#include "records/record.h"
#include "support/host.h"

namespace host {

/// The arguments of call(), in order: arguments(Variant(1L), text_value(L"G")).
template <class... Values>
std::vector<Variant> arguments(Values&&... values) {
  std::array<Variant, sizeof...(Values)> list{std::forward<Values>(values)...};
  return {std::make_move_iterator(list.begin()), std::make_move_iterator(list.end())};
}

/// Variables of the host, passed as typed references. They stay the caller's.
inline Variant by_reference(short& number) {
  Variant argument;
  argument.get().vt = VT_BYREF | VT_I2;
  argument.get().piVal = &number;
  return argument;
}
inline Variant by_reference(Text& text) {
  Variant argument;
  argument.get().vt = VT_BYREF | VT_BSTR;
  argument.get().pbstrVal = text.in_out();
  return argument;
}
/// A script's variable.
inline Variant by_reference(VARIANT& variable) {
  Variant argument;
  argument.get().vt = VT_BYREF | VT_VARIANT;
  argument.get().pvarVal = &variable;
  return argument;
}

/// The platform's description of a record of the library, as a host takes it out of the type library.
ComPtr<IRecordInfo> record_info(const GUID& record);
template <class T>
ComPtr<IRecordInfo> record_info() {
  return record_info(velmosav::layout_of<T>().id);
}

/// A record by reference; `info` must outlive the argument.
template <class T>
Variant record_argument(T& record, IRecordInfo* info) {
  Variant argument;
  argument.get().vt = VT_BYREF | VT_RECORD;
  argument.get().pvRecord = &record;
  argument.get().pRecInfo = info;
  return argument;
}

}  // namespace host
