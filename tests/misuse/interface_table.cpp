#include "misuse/interface_table.h"

#include "support/type_library.h"

namespace misuse {
namespace {

void describe_named_type(const ComPtr<ITypeInfo>& info, HREFTYPE reference, Parameter& parameter) {
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(S_OK, info->GetRefTypeInfo(reference, type.receive()));
  const auto attributes = contract::attributes_of(type);
  if (attributes->typekind == TKIND_ENUM) {
    parameter.type = VT_I4;
    return;
  }
  EXPECT_EQ(TKIND_RECORD, attributes->typekind);
  parameter.type = VT_RECORD;
  parameter.record = velmosav::layout_by_id(attributes->guid);
  EXPECT_NE(nullptr, parameter.record);
  EXPECT_EQ(S_OK, GetRecordInfoFromTypeInfo(type.get(), parameter.record_info.receive()));
}

void describe_type(const ComPtr<ITypeInfo>& info, const TYPEDESC& type, Parameter& parameter) {
  switch (type.vt) {
    case VT_PTR:
      parameter.by_reference = true;
      describe_type(info, *type.lptdesc, parameter);
      return;
    case VT_SAFEARRAY:
      parameter.type = static_cast<VARTYPE>(VT_ARRAY | type.lptdesc->vt);
      return;
    case VT_USERDEFINED:
      describe_named_type(info, type.hreftype, parameter);
      return;
    default:
      parameter.type = type.vt;
  }
}

Member member_of(const ComPtr<ITypeInfo>& info, const FUNCDESC& function) {
  Member member;
  member.id = function.memid;
  member.kind = function.invkind;
  member.slot = static_cast<unsigned>(function.oVft) / contract::kSlotSize;
  auto names = contract::names_of(info, function.memid);
  member.name = names[0];
  names.resize(static_cast<std::size_t>(function.cParams) + 1);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    Parameter parameter;
    parameter.name = names[static_cast<std::size_t>(i) + 1];
    parameter.optional = (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
    describe_type(info, element.tdesc, parameter);
    if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      member.result = std::move(parameter);
    } else {
      member.parameters.push_back(std::move(parameter));
    }
  }
  return member;
}

Class class_of(const ComPtr<ITypeInfo>& coclass) {
  Class found;
  found.name = contract::name_of(coclass);
  found.clsid = contract::attributes_of(coclass)->guid;
  found.iid = contract::attributes_of(contract::dispatch_face(found.name))->guid;
  const auto face = contract::vtable_face(found.name);
  const UINT count = contract::attributes_of(face)->cFuncs;
  for (UINT i = 0; i < count; ++i) {
    const auto function = contract::function_of(face, i);
    if (function->oVft >= static_cast<SHORT>(contract::kInheritedSlots * contract::kSlotSize)) {
      found.members.push_back(member_of(face, *function));
    }
  }
  return found;
}

std::vector<Class> read_classes() {
  std::vector<Class> found;
  const auto library = contract::type_library();
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    TYPEKIND kind = TKIND_MAX;
    EXPECT_EQ(S_OK, library->GetTypeInfoType(i, &kind));
    if (kind != TKIND_COCLASS) continue;
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(S_OK, library->GetTypeInfo(i, info.receive()));
    found.push_back(class_of(info));
  }
  return found;
}

}  // namespace

const std::vector<Class>& classes() {
  // Kept to the end of the program, when the platform's objects can no longer be released.
  static const auto* const found = new std::vector<Class>(read_classes());
  return *found;
}

}  // namespace misuse
