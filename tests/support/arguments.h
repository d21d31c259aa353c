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
inline Variant by_reference(VARTYPE type, void* variable) {
  Variant argument;
  argument.get().vt = static_cast<VARTYPE>(VT_BYREF | type);
  argument.get().byref = variable;
  return argument;
}
inline Variant by_reference(short& number) { return by_reference(VT_I2, &number); }
inline Variant by_reference(long& number) { return by_reference(VT_I4, &number); }
inline Variant by_reference(double& number) { return by_reference(VT_R8, &number); }
inline Variant by_reference(Text& text) { return by_reference(VT_BSTR, text.in_out()); }
/// A script's variable.
inline Variant by_reference(VARIANT& variable) { return by_reference(VT_VARIANT, &variable); }
inline Variant by_reference(Variant& variable) { return by_reference(variable.get()); }

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
