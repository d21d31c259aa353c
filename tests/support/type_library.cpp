#include "support/type_library.h"

#include "support/library_path.h"

namespace contract {
namespace {

/// Any class leads to the DLL.
constexpr wchar_t kAnyClass[] = L"VelmoSAV_DLL14.General";

std::string plain_type(VARTYPE type) {
  switch (type) {
    case VT_UI1:
      return "UI1";
    case VT_I2:
      return "I2";
    case VT_I4:
      return "I4";
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

std::string table_text(const ComPtr<ITypeInfo>& info, const ARRAYDESC& table) {
  std::string text = "table";
  for (USHORT i = 0; i < table.cDims; ++i) {
    if (table.rgbounds[i].lLbound != 0) text += " from " + std::to_string(table.rgbounds[i].lLbound);
    text += (i == 0 ? " of " : " by ") + std::to_string(table.rgbounds[i].cElements);
  }
  return text + ' ' + type_text(info, table.tdescElem);
}

}  // namespace

std::wstring registered_path() {
  CLSID clsid;
  if (FAILED(CLSIDFromProgID(kAnyClass, &clsid))) return {};
  wchar_t identifier[64];
  StringFromGUID2(clsid, identifier, 64);
  const std::wstring key = L"CLSID\\" + std::wstring(identifier) + L"\\InprocServer32";
  wchar_t path[MAX_PATH] = L"";
  LONG size = sizeof(path);
  RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), path, &size);
  return path;
}

ComPtr<ITypeLib> type_library() {
  // Kept to the end of the program: reading it costs more than a test.
  static ITypeLib* const library = [] {
    const std::wstring path = host::library_path();
    ComPtr<ITypeLib> loaded;
    EXPECT_EQ(S_OK, LoadTypeLibEx(path.c_str(), REGKIND_NONE, loaded.receive())) << utf8(path);
    return loaded.detach();
  }();
  return ComPtr<ITypeLib>::copy(library);
}

std::vector<ComPtr<ITypeInfo>> every_type() {
  std::vector<ComPtr<ITypeInfo>> types;
  const auto library = type_library();
  for (UINT i = 0; library && i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(S_OK, library->GetTypeInfo(i, info.receive()));
    types.push_back(std::move(info));
  }
  return types;
}

ComPtr<ITypeInfo> type_named(TYPEKIND kind, const std::wstring& name) {
  ComPtr<ITypeInfo> info;
  const auto library = type_library();
  for (UINT i = 0; library && i < library->GetTypeInfoCount(); ++i) {
    TYPEKIND found = TKIND_MAX;
    EXPECT_EQ(S_OK, library->GetTypeInfoType(i, &found));
    if (found != kind) continue;
    EXPECT_EQ(S_OK, library->GetTypeInfo(i, info.receive()));
    if (name_of(info) == name) return info;
  }
  ADD_FAILURE() << "the type library has no " << utf8(name);
  return nullptr;
}

ComPtr<ITypeInfo> referred_type(const ComPtr<ITypeInfo>& info, HREFTYPE reference) {
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(S_OK, info->GetRefTypeInfo(reference, type.receive()));
  return type;
}

ComPtr<ITypeInfo> dispatch_face(const std::wstring& class_name) {
  return type_named(TKIND_DISPATCH, L'_' + class_name);
}

ComPtr<ITypeInfo> vtable_face(const std::wstring& class_name) {
  return vtable_face(dispatch_face(class_name));
}

ComPtr<ITypeInfo> vtable_face(const ComPtr<ITypeInfo>& dispatch) {
  HREFTYPE reference = 0;
  if (!dispatch) return nullptr;
  EXPECT_EQ(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  return referred_type(dispatch, reference);
}

Held<TYPEATTR> attributes_of(const ComPtr<ITypeInfo>& info) {
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, info->GetTypeAttr(&attributes));
  return {attributes, [info](TYPEATTR* given) { info->ReleaseTypeAttr(given); }};
}

Held<FUNCDESC> function_of(const ComPtr<ITypeInfo>& info, UINT index) {
  FUNCDESC* function = nullptr;
  EXPECT_EQ(S_OK, info->GetFuncDesc(index, &function)) << utf8(name_of(info)) << ' ' << index;
  return {function, [info](FUNCDESC* given) { info->ReleaseFuncDesc(given); }};
}

Held<VARDESC> variable_of(const ComPtr<ITypeInfo>& info, UINT index) {
  VARDESC* variable = nullptr;
  EXPECT_EQ(S_OK, info->GetVarDesc(index, &variable)) << utf8(name_of(info)) << ' ' << index;
  return {variable, [info](VARDESC* given) { info->ReleaseVarDesc(given); }};
}

std::wstring name_of(const ComPtr<ITypeInfo>& info, MEMBERID member) {
  Bstr name;
  EXPECT_EQ(S_OK, info->GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr));
  return std::wstring(name.view());
}

std::vector<std::wstring> names_of(const ComPtr<ITypeInfo>& info, MEMBERID member) {
  constexpr UINT kMost = 32;
  BSTR names[kMost] = {};
  UINT count = 0;
  EXPECT_EQ(S_OK, info->GetNames(member, names, kMost, &count));
  std::vector<std::wstring> texts;
  for (UINT i = 0; i < count; ++i) texts.emplace_back(Bstr::attach(names[i]).view());
  return texts;
}

std::string type_text(const ComPtr<ITypeInfo>& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return type_text(info, *type.lptdesc) + '*';
    case VT_SAFEARRAY:
      return "array of " + type_text(info, *type.lptdesc);
    case VT_CARRAY:
      return table_text(info, *type.lpadesc);
    case VT_USERDEFINED:
      return utf8(name_of(referred_type(info, type.hreftype)));
    default:
      return plain_type(type.vt);
  }
}

}  // namespace contract
