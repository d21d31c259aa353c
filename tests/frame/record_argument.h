// Records as arguments of a late-bound call, described as a host describes them: by the type library.
#pragma once

#include "frame/invocation.h"
#include "support/records.h"

namespace host {

/// A record of the host as an argument; borrows the record.
class RecordArgument {
 public:
  template <class T>
  explicit RecordArgument(T& record, VARTYPE type = VT_BYREF | VT_RECORD) : info_(record_info<T>()) {
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
