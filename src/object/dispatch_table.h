// What the type library says of one interface, in the form in which a late-bound call needs it.
// Built once per class at its first late-bound use.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "object/class_traits.h"

namespace velmosav {

/// A parameter or result. `type` is what stands behind the reference when there is one.
struct DispatchParameter {
  std::wstring name;
  VARTYPE type = VT_EMPTY;  // VT_ARRAY|element for an array; VT_RECORD with `record`
  bool by_reference = false;
  bool optional = false;
  Variant default_value;  // VT_EMPTY when there is none
  GUID record{};
  ComPtr<IRecordInfo> record_info;

  /// 32-bit words on the stack.
  [[nodiscard]] unsigned words() const noexcept;
};

/// One vtable slot: a get, a let or a method.
struct DispatchSlot {
  unsigned vtable_index = 0;
  std::vector<DispatchParameter> parameters;  // without the result
  DispatchParameter result;                   // VT_EMPTY when there is none
};

struct DispatchMember {
  std::wstring name;
  std::unique_ptr<DispatchSlot> method, get, let;
};

class DispatchTable {
 public:
  /// Throws when the type library cannot be read or holds a type that a late-bound call cannot pass.
  explicit DispatchTable(const IID& interface_id);

  [[nodiscard]] ITypeInfo* type_info() const noexcept { return type_info_.get(); }

  /// Ignoring case; DISPID_UNKNOWN when there is no such member.
  [[nodiscard]] DISPID find(std::wstring_view name) const noexcept;
  [[nodiscard]] const DispatchMember* member(DISPID id) const noexcept;

 private:
  void add_function(ITypeInfo& info, UINT index);
  void index_names();

  ComPtr<ITypeInfo> type_info_;
  std::vector<DispatchMember> members_;  // dispatch identifier - 1
  std::vector<DISPID> buckets_;          // open addressing on the folded name
};

/// Equal ignoring case.
bool same_name(std::wstring_view left, std::wstring_view right) noexcept;

}  // namespace velmosav
