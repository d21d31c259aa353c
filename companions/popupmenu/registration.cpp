#include "registration.h"

#include <new>
#include <optional>
#include <string>

#include "automation/fault.h"
#include "automation/module.h"
#include "popup_menu_object.h"

namespace popupmenu {
namespace {

/// Length of a class identifier as text, with the end mark.
constexpr int kIdentifierLength = 39;

std::wstring class_text() {
  wchar_t text[kIdentifierLength];
  StringFromGUID2(kClass, text, kIdentifierLength);
  return text;
}

std::wstring class_key() { return L"CLSID\\" + class_text(); }
std::wstring prog_id_class_key() { return std::wstring(kProgId) + L"\\CLSID"; }

void check_registry(LSTATUS status) {
  if (status != ERROR_SUCCESS) velmosav::raise(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

void write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  check_registry(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(),
                                 static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
}

LSTATUS remove_tree(const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

enum class Owner { Nobody, Component, Other };

/// Whose class the ProgID leads to.
Owner prog_id_owner() {
  wchar_t text[kIdentifierLength];
  DWORD size = sizeof text;
  const LSTATUS status = RegGetValueW(HKEY_CLASSES_ROOT, prog_id_class_key().c_str(), nullptr, RRF_RT_REG_SZ,
                                      nullptr, text, &size);
  if (status == ERROR_FILE_NOT_FOUND) return Owner::Nobody;
  if (status != ERROR_SUCCESS) return Owner::Other;
  return CompareStringOrdinal(text, -1, class_text().c_str(), -1, TRUE) == CSTR_EQUAL ? Owner::Component
                                                                                      : Owner::Other;
}

template <class Body>
HRESULT code_of(Body&& body) noexcept {
  try {
    return body();
  } catch (const velmosav::Failure& failure) {
    return failure.code;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace

HRESULT register_component() noexcept {
  const HRESULT code = code_of([] {
    if (prog_id_owner() == Owner::Other) return S_FALSE;
    write(class_key(), nullptr, kProgId);
    write(class_key() + L"\\InprocServer32", nullptr, velmosav::module::path());
    write(class_key() + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    write(class_key() + L"\\ProgID", nullptr, kProgId);
    write(kProgId, nullptr, kProgId);
    write(prog_id_class_key(), nullptr, class_text());
    return S_OK;
  });
  if (FAILED(code)) unregister_component();
  return code;
}

HRESULT unregister_component() noexcept {
  return code_of([] {
    const LSTATUS prog_id = prog_id_owner() == Owner::Component ? remove_tree(kProgId) : ERROR_SUCCESS;
    check_registry(remove_tree(class_key()));
    check_registry(prog_id);
    return S_OK;
  });
}

}  // namespace popupmenu
