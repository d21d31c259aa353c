#include "support/arguments.h"

#include "support/type_library.h"

namespace host {

ComPtr<IRecordInfo> record_info(const GUID& record) {
  ComPtr<ITypeInfo> type;
  ComPtr<IRecordInfo> info;
  EXPECT_EQ(S_OK, contract::type_library()->GetTypeInfoOfGuid(record, type.receive()));
  EXPECT_EQ(S_OK, GetRecordInfoFromTypeInfo(type.get(), info.receive()));
  return info;
}

}  // namespace host
