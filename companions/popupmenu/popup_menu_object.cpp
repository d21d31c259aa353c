#include "popup_menu_object.h"

#include <cstdint>
#include <iterator>
#include <new>

#include "automation/com_ptr.h"
#include "automation/fault.h"

namespace popupmenu {
namespace {

using velmosav::Bstr;
using velmosav::Variant;

struct Member {
  const wchar_t* name;
  UINT fewest_arguments;
  UINT most_arguments;
};
/// A member's dispatch identifier is its place, from 1.
constexpr Member kMembers[] = {{L"AddItem", 1, 2}, {L"ExecuteFromWindow", 1, 1}};
constexpr DISPID kAddItem = 1;

DISPID id_of(const wchar_t* name) {
  for (std::size_t i = 0; i < std::size(kMembers); ++i) {
    if (CompareStringOrdinal(name, -1, kMembers[i].name, -1, TRUE) == CSTR_EQUAL)
      return static_cast<DISPID>(i + 1);
  }
  return DISPID_UNKNOWN;
}

/// The platform lists arguments last first.
const VARIANT& argument(const DISPPARAMS& parameters, UINT place) {
  return parameters.rgvarg[parameters.cArgs - 1 - place];
}

HRESULT fail(EXCEPINFO* exception, HRESULT code, const wchar_t* text) {
  if (exception) {
    *exception = {};
    exception->scode = code;
    exception->bstrSource = SysAllocString(kProgId);
    exception->bstrDescription = SysAllocString(text);
  }
  return DISP_E_EXCEPTION;
}

HRESULT fail(EXCEPINFO* exception, HRESULT code) {
  return fail(exception, code, velmosav::failure_text(code));
}

}  // namespace

HRESULT PopupMenuObject::QueryInterface(REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

ULONG PopupMenuObject::AddRef() noexcept { return references_.fetch_add(1) + 1; }

ULONG PopupMenuObject::Release() noexcept {
  const ULONG left = references_.fetch_sub(1) - 1;
  if (left == 0) delete this;
  return left;
}

HRESULT PopupMenuObject::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT PopupMenuObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

HRESULT PopupMenuObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0) return E_INVALIDARG;
  // Arguments have no names.
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  if (!names[0]) return E_INVALIDARG;
  ids[0] = id_of(names[0]);
  return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT PopupMenuObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                VARIANT* result, EXCEPINFO* exception, UINT*) noexcept {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!parameters) return E_INVALIDARG;
  if (id < 1 || id > static_cast<DISPID>(std::size(kMembers)) || !(flags & DISPATCH_METHOD)) {
    return DISP_E_MEMBERNOTFOUND;
  }
  if (parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  const Member& member = kMembers[id - 1];
  if (parameters->cArgs < member.fewest_arguments || parameters->cArgs > member.most_arguments) {
    return DISP_E_BADPARAMCOUNT;
  }
  // While the menu is open, the caller's own windows may let go of the object.
  const auto kept = velmosav::ComPtr<IDispatch>::copy(this);
  try {
    Variant answer = perform(id, *parameters);
    if (result) *result = answer.detach();
    return S_OK;
  } catch (const Refusal& refusal) {
    return fail(exception, refusal.code, refusal.text);
  } catch (const velmosav::Failure& failure) {
    return fail(exception, failure.code);
  } catch (const std::bad_alloc&) {
    return fail(exception, E_OUTOFMEMORY);
  } catch (...) {
    return fail(exception, E_UNEXPECTED);
  }
}

Variant PopupMenuObject::perform(DISPID id, const DISPPARAMS& parameters) {
  const VARIANT& first = argument(parameters, 0);
  if (id == kAddItem) {
    const bool has_key = parameters.cArgs == 2 && !velmosav::is_missing(argument(parameters, 1));
    add_item(first, has_key ? &argument(parameters, 1) : nullptr);
    return {};
  }
  const auto window = reinterpret_cast<HWND>(static_cast<std::intptr_t>(velmosav::to_long(first)));
  return Variant(Bstr(menu_.choose(window)));
}

void PopupMenuObject::add_item(const VARIANT& caption, const VARIANT* key) {
  const Bstr text = velmosav::to_text(caption);
  if (key) {
    menu_.add_entry(text.view(), velmosav::to_text(*key).view());
  } else if (text.view() == L"-") {
    menu_.add_separator();
  } else {
    menu_.add_entry(text.view(), {});
  }
}

IDispatch* create_popup_menu() { return new (std::nothrow) PopupMenuObject; }

}  // namespace popupmenu
