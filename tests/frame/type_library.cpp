#include "frame/type_library.h"

namespace host {
namespace {

constexpr UINT kMostNames = 32;

std::string plain_type(VARTYPE type) {
  switch (type) {
    case VT_I2:
      return "I2";
    case VT_I4:
      return "I4";
    case VT_UI1:
      return "UI1";
    case VT_R8:
      return "R8";
    case VT_CY:
      return "CY";
    case VT_BOOL:
      return "BOOL";
    case VT_BSTR:
      return "BSTR";
    case VT_DISPATCH:
      return "DISPATCH";
    case VT_VARIANT:
      return "VARIANT";
    default:
      return "VARTYPE " + std::to_string(type);
  }
}

std::string named_type(ITypeInfo& info, HREFTYPE reference) {
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(S_OK, info.GetRefTypeInfo(reference, type.receive()));
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, type->GetTypeAttr(&attributes));
  const TYPEKIND kind = attributes->typekind;
  type->ReleaseTypeAttr(attributes);
  Bstr name;
  type->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr);
  if (kind == TKIND_ENUM) return "enumeration";
  return (kind == TKIND_RECORD ? "record " : "other ") + utf8(name.view());
}

std::string type_text(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return type_text(info, *type.lptdesc) + "*";
    case VT_SAFEARRAY:
      return "array of " + type_text(info, *type.lptdesc);
    case VT_USERDEFINED:
      return named_type(info, type.hreftype);
    default:
      return plain_type(type.vt);
  }
}

Member member_of(ITypeInfo& info, const FUNCDESC& function) {
  Member member;
  member.id = function.memid;
  member.kind = function.invkind;
  BSTR names[kMostNames] = {};
  UINT count = 0;
  EXPECT_EQ(S_OK, info.GetNames(function.memid, names, kMostNames, &count));
  std::vector<std::wstring> texts;
  for (UINT i = 0; i < count; ++i) texts.emplace_back(Bstr::attach(names[i]).view());
  texts.resize(kMostNames);
  member.name = texts[0];
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    const std::string type = type_text(info, element.tdesc);
    if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      member.result = type.substr(0, type.size() - 1);
    } else {
      const bool optional = (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
      member.parameters.push_back({texts[static_cast<std::size_t>(i) + 1], type, optional});
    }
  }
  return member;
}

/// The vtable side of a dual interface: the other side hides the results.
ComPtr<ITypeInfo> vtable_side(ComPtr<ITypeInfo> info) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> other;
  if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) return info;
  EXPECT_EQ(S_OK, info->GetRefTypeInfo(reference, other.receive()));
  return other;
}

}  // namespace

ComPtr<ITypeLib> type_library() {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(S_OK, LoadTypeLibEx(library_path().c_str(), REGKIND_NONE, library.receive()));
  return library;
}

std::vector<Member> members_of(const IID& interface_id) {
  ComPtr<ITypeInfo> info;
  EXPECT_EQ(S_OK, type_library()->GetTypeInfoOfGuid(interface_id, info.receive()));
  info = vtable_side(info);
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, info->GetTypeAttr(&attributes));
  const UINT count = attributes->cFuncs;
  info->ReleaseTypeAttr(attributes);

  std::vector<Member> members;
  for (UINT i = 0; i < count; ++i) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(S_OK, info->GetFuncDesc(i, &function));
    constexpr SHORT kInheritedSlots = 7;
    if (function->oVft >= static_cast<SHORT>(kInheritedSlots * sizeof(void*))) {
      members.push_back(member_of(*info.get(), *function));
    }
    info->ReleaseFuncDesc(function);
  }
  return members;
}

}  // namespace host
