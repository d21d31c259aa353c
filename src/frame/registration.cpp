#include "frame/registration.h"

#include <string>

#include "automation/fault.h"
#include "automation/module.h"
#include "frame/class_table.h"
#include "object/boundary.h"

namespace velmosav {
namespace {

constexpr wchar_t kLibraryName[] = L"VelmoSAV_DLL14";

std::wstring text_of(REFGUID id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring prog_id(const ClassIdentity& identity) {
  return std::wstring(kLibraryName) + L"." + identity.name;
}
std::wstring class_key(const ClassIdentity& identity) { return L"CLSID\\" + text_of(identity.clsid); }

void check_registry(LSTATUS status) {
  if (status != ERROR_SUCCESS) raise(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

void write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  HKEY handle = nullptr;
  check_registry(
      RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle, nullptr));
  const LSTATUS status = RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(handle);
  check_registry(status);
}

void register_class(const ClassIdentity& identity, const std::wstring& server, const std::wstring& library) {
  const std::wstring key = class_key(identity);
  write(key, nullptr, prog_id(identity));
  write(key + L"\\InprocServer32", nullptr, server);
  write(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  write(key + L"\\ProgID", nullptr, prog_id(identity));
  write(key + L"\\TypeLib", nullptr, library);
  write(key + L"\\Version", nullptr, L"1.0");
  write(prog_id(identity), nullptr, prog_id(identity));
  write(prog_id(identity) + L"\\CLSID", nullptr, text_of(identity.clsid));
}

/// Missing keys are fine; the first other failure is kept in `first`.
void remove_tree(const std::wstring& key, LSTATUS& first) {
  const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND && first == ERROR_SUCCESS) first = status;
}

}  // namespace

HRESULT register_library() noexcept {
  const HRESULT code = boundary(kLibraryName, [] {
    std::wstring server = module::path();
    const ComPtr<ITypeLib> library = module::type_library();
    check(RegisterTypeLib(library.get(), server.data(), nullptr));
    for (const CreatableClass& entry : creatable_classes()) {
      register_class(entry.identity, server, text_of(LIBID_VelmoSAV_DLL14));
    }
  });
  if (FAILED(code)) unregister_library();
  return code;
}

HRESULT unregister_library() noexcept {
  return boundary(kLibraryName, [] {
    LSTATUS first = ERROR_SUCCESS;
    for (const CreatableClass& entry : creatable_classes()) {
      remove_tree(class_key(entry.identity), first);
      remove_tree(prog_id(entry.identity), first);
    }
    Bstr registered;
    if (SUCCEEDED(QueryPathOfRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, registered.receive()))) {
      check(UnRegisterTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, SYS_WIN32));
    }
    check_registry(first);
  });
}

}  // namespace velmosav
