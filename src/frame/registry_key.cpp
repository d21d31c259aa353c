#include "frame/registry_key.h"

#include <utility>

#include "automation/fault.h"

namespace velmosav {
namespace {

LSTATUS create_key(const std::wstring& path, HKEY& handle) noexcept {
  return RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                         nullptr);
}

}  // namespace

void check_registry(LSTATUS status) {
  if (status != ERROR_SUCCESS) raise(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

std::optional<RegistryKey> RegistryKey::open(const std::wstring& path) {
  HKEY handle = nullptr;
  const LSTATUS status = RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &handle);
  if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
  check_registry(status);
  return RegistryKey(handle);
}

RegistryKey RegistryKey::create(const std::wstring& path) {
  HKEY handle = nullptr;
  check_registry(create_key(path, handle));
  return RegistryKey(handle);
}

std::optional<RegistryKey> RegistryKey::try_create(const std::wstring& path) noexcept {
  HKEY handle = nullptr;
  if (create_key(path, handle) != ERROR_SUCCESS) return std::nullopt;
  return RegistryKey(handle);
}

RegistryKey::~RegistryKey() {
  if (handle_) RegCloseKey(handle_);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

}  // namespace velmosav
