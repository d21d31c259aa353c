// Records as arguments of a late-bound call, described as a host describes them: by the type library.
#pragma once

#include "frame/invocation.h"
#include "support/records.h"
#include "support/type_library.h"

namespace host {

/// The platform's description of a record of the library.
inline ComPtr<IRecordInfo> record_info(const GUID& record) {
  ComPtr<ITypeInfo> type;
  ComPtr<IRecordInfo> info;
  EXPECT_EQ(S_OK, contract::type_library()->GetTypeInfoOfGuid(record, type.receive()));
  EXPECT_EQ(S_OK, GetRecordInfoFromTypeInfo(type.get(), info.receive()));
  return info;
}

/// A record of the host as an argument; borrows the record.
class RecordArgument {
 public:
  template <class T>
  explicit RecordArgument(T& record, VARTYPE type = VT_BYREF | VT_RECORD)
      : info_(record_info(velmosav::layout_of<T>().id)) {
    VariantInit(&value_);
    value_.vt = type;
    value_.pvRecord = &record;
    value_.pRecInfo = info_.get();
  }
  RecordArgument(const RecordArgument&) = delete;
  RecordArgument& operator=(const RecordArgument&) = delete;

  operator const VARIANT&() const { return value_; }
  [[nodiscard]] VARIANT& value() { return value_; }

 private:
  ComPtr<IRecordInfo> info_;
  VARIANT value_;
};

}  // namespace host
