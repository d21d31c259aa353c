#include "frame/registry_backup.h"

#include "frame/registry_key.h"

namespace velmosav {
namespace {

/// The longest name of a key is 255 units, of a value 16383.
constexpr DWORD kKeyName = 256, kValueName = 16384;

}  // namespace

void RegistryBackup::add(const std::wstring& key) {
  roots_.push_back(key);
  read(key);
}

void RegistryBackup::read(const std::wstring& path) {
  const std::optional<RegistryKey> key = RegistryKey::open(path);
  if (!key) return;
  DWORD values = 0, keys = 0, longest = 0;
  check_registry(RegQueryInfoKeyW(key->get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                  nullptr, &longest, nullptr, nullptr));
  const std::size_t place = keys_.size();
  keys_.push_back({path, {}});
  std::wstring name(values != 0 ? kValueName : 0, L'\0');
  std::vector<BYTE> data(longest);
  for (DWORD i = 0; i < values; ++i) {
    DWORD length = kValueName, type = 0, size = longest;
    check_registry(RegEnumValueW(key->get(), i, name.data(), &length, nullptr, &type, data.data(), &size));
    keys_[place].values.push_back({name.substr(0, length), type, {data.data(), data.data() + size}});
  }
  for (DWORD i = 0; i < keys; ++i) {
    wchar_t child[kKeyName];
    DWORD length = kKeyName;
    check_registry(RegEnumKeyExW(key->get(), i, child, &length, nullptr, nullptr, nullptr, nullptr));
    read(path + L"\\" + child);
  }
}

void RegistryBackup::restore() const noexcept {
  for (const std::wstring& root : roots_) RegDeleteTreeW(HKEY_CLASSES_ROOT, root.c_str());
  for (const Key& key : keys_) {
    const std::optional<RegistryKey> made = RegistryKey::try_create(key.path);
    if (!made) continue;
    for (const Value& value : key.values) {
      RegSetValueExW(made->get(), value.name.c_str(), 0, value.type, value.data.data(),
                     static_cast<DWORD>(value.data.size()));
    }
  }
}

}  // namespace velmosav
