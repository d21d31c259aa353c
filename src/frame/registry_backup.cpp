#include "frame/registry_backup.h"

#include "automation/fault.h"

namespace velmosav {
namespace {

class OpenKey {
 public:
  explicit OpenKey(const std::wstring& path) noexcept
      : status(RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &handle)) {}
  ~OpenKey() {
    if (handle) RegCloseKey(handle);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  HKEY handle = nullptr;
  const LSTATUS status;
};

/// The longest name of a key is 255 units, of a value 16383.
constexpr DWORD kKeyName = 256, kValueName = 16384;

void check_registry(LSTATUS status) {
  if (status != ERROR_SUCCESS) raise(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

}  // namespace

void RegistryBackup::add(const std::wstring& key) {
  roots_.push_back(key);
  read(key);
}

void RegistryBackup::read(const std::wstring& path) {
  const OpenKey key(path);
  if (key.status == ERROR_FILE_NOT_FOUND) return;
  check_registry(key.status);
  DWORD values = 0, keys = 0, longest = 0;
  check_registry(RegQueryInfoKeyW(key.handle, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                  nullptr, &longest, nullptr, nullptr));
  const std::size_t place = keys_.size();
  keys_.push_back({path, {}});
  std::wstring name(values != 0 ? kValueName : 0, L'\0');
  std::vector<BYTE> data(longest);
  for (DWORD i = 0; i < values; ++i) {
    DWORD length = kValueName, type = 0, size = longest;
    check_registry(RegEnumValueW(key.handle, i, name.data(), &length, nullptr, &type, data.data(), &size));
    keys_[place].values.push_back({name.substr(0, length), type, {data.data(), data.data() + size}});
  }
  for (DWORD i = 0; i < keys; ++i) {
    wchar_t child[kKeyName];
    DWORD length = kKeyName;
    check_registry(RegEnumKeyExW(key.handle, i, child, &length, nullptr, nullptr, nullptr, nullptr));
    read(path + L"\\" + child);
  }
}

void RegistryBackup::restore() const noexcept {
  for (const std::wstring& root : roots_) RegDeleteTreeW(HKEY_CLASSES_ROOT, root.c_str());
  for (const Key& key : keys_) {
    HKEY handle = nullptr;
    if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                        nullptr) != ERROR_SUCCESS) {
      continue;
    }
    for (const Value& value : key.values) {
      RegSetValueExW(handle, value.name.c_str(), 0, value.type, value.data.data(),
                     static_cast<DWORD>(value.data.size()));
    }
    RegCloseKey(handle);
  }
}

}  // namespace velmosav
