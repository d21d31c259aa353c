#include "frame/members.h"

#include "support/type_library.h"

namespace host {
namespace {

using contract::referred_type;

/// As the contract's tables write it, with "record" before a record; the enumerations are all alike.
std::string type_text(const ComPtr<ITypeInfo>& info, const TYPEDESC& type) {
  const TYPEDESC& target = type.vt == VT_PTR ? *type.lptdesc : type;
  std::string text = contract::type_text(info, type);
  if (target.vt != VT_USERDEFINED) return text;
  switch (contract::attributes_of(referred_type(info, target.hreftype))->typekind) {
    case TKIND_ENUM:
      return type.vt == VT_PTR ? "enumeration*" : "enumeration";
    case TKIND_RECORD:
      return "record " + text;
    default:
      return "other " + text;
  }
}

Member member_of(const ComPtr<ITypeInfo>& info, const FUNCDESC& function) {
  Member member;
  member.id = function.memid;
  member.kind = function.invkind;
  std::vector<std::wstring> names = contract::names_of(info, function.memid);
  member.name = names.front();
  names.resize(static_cast<std::size_t>(function.cParams) + 1);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    const std::string type = type_text(info, element.tdesc);
    if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      member.result = type.substr(0, type.size() - 1);
    } else {
      const bool optional = (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
      member.parameters.push_back({names[static_cast<std::size_t>(i) + 1], type, optional});
    }
  }
  return member;
}

}  // namespace

std::vector<Member> members_of(const IID& interface_id) {
  ComPtr<ITypeInfo> dispatch;
  EXPECT_EQ(S_OK, contract::type_library()->GetTypeInfoOfGuid(interface_id, dispatch.receive()));
  const auto info = contract::vtable_face(dispatch);
  const UINT count = contract::attributes_of(info)->cFuncs;
  std::vector<Member> members;
  for (UINT i = 0; i < count; ++i) {
    const auto function = contract::function_of(info, i);
    if (function->oVft >= static_cast<SHORT>(contract::kInheritedSlots * contract::kSlotSize)) {
      members.push_back(member_of(info, *function));
    }
  }
  return members;
}

}  // namespace host
