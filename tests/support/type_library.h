// The type library as a host reads it: loaded from the DLL, with the platform's own functions.
#pragma once

#include "support/host.h"

#include <functional>
#include <memory>

namespace contract {

using host::Bstr;
using host::ComPtr;
using host::utf8;

/// The DLL's path as registration has written it.
std::wstring registered_path();

/// The type library inside the DLL; null, and the test fails, when there is none.
ComPtr<ITypeLib> type_library();

/// Every type that it publishes.
std::vector<ComPtr<ITypeInfo>> every_type();

/// A type by its kind and exact name; null, and the test fails, when the library has none.
ComPtr<ITypeInfo> type_named(TYPEKIND kind, const std::wstring& name);

/// The type that a member's description refers to.
ComPtr<ITypeInfo> referred_type(const ComPtr<ITypeInfo>& info, HREFTYPE reference);

/// The two faces of a class's interface: the one that scripts read and the one with every slot and result.
ComPtr<ITypeInfo> dispatch_face(const std::wstring& class_name);
ComPtr<ITypeInfo> vtable_face(const std::wstring& class_name);
ComPtr<ITypeInfo> vtable_face(const ComPtr<ITypeInfo>& dispatch);

/// Descriptions that give themselves back.
template <class Description>
using Held = std::unique_ptr<Description, std::function<void(Description*)>>;
Held<TYPEATTR> attributes_of(const ComPtr<ITypeInfo>& info);
Held<FUNCDESC> function_of(const ComPtr<ITypeInfo>& info, UINT index);
Held<VARDESC> variable_of(const ComPtr<ITypeInfo>& info, UINT index);

std::wstring name_of(const ComPtr<ITypeInfo>& info, MEMBERID member = MEMBERID_NIL);
/// A member's name and those of its arguments.
std::vector<std::wstring> names_of(const ComPtr<ITypeInfo>& info, MEMBERID member);

/// "I2", "BSTR", "Type_Bon*" (an address), "array of VARIANT*", "table of 100 Type_LigneRepartTVA".
std::string type_text(const ComPtr<ITypeInfo>& info, const TYPEDESC& type);

/// Names the instance of a parameterised test after what it tests.
template <class Entry>
std::string name_of_case(const ::testing::TestParamInfo<Entry>& tested) {
  return utf8(tested.param.name);
}

/// Where an interface's own members begin: after those of IDispatch.
inline constexpr UINT kInheritedSlots = 7;
inline constexpr UINT kSlotSize = sizeof(void*);

}  // namespace contract
