// The published interfaces as a caller needs them: every class, every member, its slot and its types, read
// from the type library of the registered DLL.
#pragma once

#include <optional>

#include "records/layout.h"
#include "support/host.h"

namespace misuse {

using host::Bstr;
using host::ComPtr;
using host::Variant;

/// A parameter or a result. An enumeration is a VT_I4.
struct Parameter {
  std::wstring name;
  VARTYPE type = VT_EMPTY;  // VT_I2 ... VT_VARIANT, VT_RECORD, VT_ARRAY | VT_...
  bool by_reference = false;
  bool optional = false;
  const velmosav::RecordLayout* record = nullptr;  // of VT_RECORD
  ComPtr<IRecordInfo> record_info;
};

struct Member {
  std::wstring name;
  DISPID id = DISPID_UNKNOWN;
  INVOKEKIND kind = INVOKE_FUNC;
  unsigned slot = 0;                  // in the vtable
  std::vector<Parameter> parameters;  // without the result
  std::optional<Parameter> result;    // what stands behind its address
};

struct Class {
  std::wstring name;
  CLSID clsid{};
  IID iid{};
  std::vector<Member> members;  // a variable's get and let are two
};

/// Every class that a host can create, in the order of the type library.
const std::vector<Class>& classes();

}  // namespace misuse
