#include "frame/registration.h"

#include <string>

#include "automation/fault.h"
#include "automation/module.h"
#include "frame/class_table.h"
#include "frame/registry_backup.h"
#include "frame/registry_key.h"
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
std::wstring interface_key(const ClassIdentity& identity) { return L"Interface\\" + text_of(identity.iid); }
std::wstring library_key() { return L"TypeLib\\" + text_of(LIBID_VelmoSAV_DLL14); }
constexpr wchar_t kLibraryVersion[] = L"\\1.0";

void write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  check_registry(RegSetValueExW(RegistryKey::create(key).get(), name, 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(value.c_str()),
                                static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
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

/// The path to register. A DLL that was moved while it is loaded would be registered where nothing is.
std::wstring server_path() {
  std::wstring path = module::path();
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) raise(HRESULT_FROM_WIN32(GetLastError()));
  return path;
}

/// Every key that registration writes.
RegistryBackup backup_of_keys() {
  RegistryBackup backup;
  backup.add(library_key());
  for (const CreatableClass& entry : creatable_classes()) {
    backup.add(interface_key(entry.identity));
    backup.add(class_key(entry.identity));
    backup.add(prog_id(entry.identity));
  }
  return backup;
}

void write_registration(const std::wstring& server, ITypeLib* library) {
  std::wstring path = server;  // that function takes no constant
  check(RegisterTypeLib(library, path.data(), nullptr));
  for (const CreatableClass& entry : creatable_classes()) {
    register_class(entry.identity, server, text_of(LIBID_VelmoSAV_DLL14));
  }
}

/// The platform's removal reads the type library where the registry says that it is. When nothing can be read
/// there, the keys are known all the same.
void remove_type_library(LSTATUS& first) {
  if (!RegistryKey::open(library_key() + kLibraryVersion)) return;
  const HRESULT code = UnRegisterTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, SYS_WIN32);
  if (code == E_OUTOFMEMORY) raise(code);
  if (SUCCEEDED(code)) return;
  for (const CreatableClass& entry : creatable_classes()) remove_tree(interface_key(entry.identity), first);
  remove_tree(library_key() + kLibraryVersion, first);
  RegDeleteKeyW(HKEY_CLASSES_ROOT, library_key().c_str());  // stays when another version is below it
}

}  // namespace

HRESULT register_library() noexcept {
  return boundary(kLibraryName, [] {
    const std::wstring server = server_path();
    const ComPtr<ITypeLib> library = module::type_library();
    const RegistryBackup backup = backup_of_keys();
    const HRESULT code = boundary(kLibraryName, [&] { write_registration(server, library.get()); });
    if (SUCCEEDED(code)) return;
    backup.restore();
    raise_call_failure(code);
  });
}

HRESULT unregister_library() noexcept {
  return boundary(kLibraryName, [] {
    LSTATUS first = ERROR_SUCCESS;
    for (const CreatableClass& entry : creatable_classes()) {
      remove_tree(class_key(entry.identity), first);
      remove_tree(prog_id(entry.identity), first);
    }
    remove_type_library(first);
    check_registry(first);
  });
}

}  // namespace velmosav
