// A key of HKEY_CLASSES_ROOT, open as long as the object lives.
#pragma once

#include "automation/platform.h"

#include <optional>
#include <string>

namespace velmosav {

/// Raises what the registry answered, as an HRESULT.
void check_registry(LSTATUS status);

class RegistryKey {
 public:
  /// Opens for reading; nothing when there is no such key. Any other failure is raised.
  static std::optional<RegistryKey> open(const std::wstring& path);
  /// Opens for writing; makes the key, and those above it, where there is none.
  static RegistryKey create(const std::wstring& path);
  /// As `create`, where no failure may leave: nothing after one.
  static std::optional<RegistryKey> try_create(const std::wstring& path) noexcept;

  ~RegistryKey();
  RegistryKey(RegistryKey&& other) noexcept;
  RegistryKey& operator=(RegistryKey&&) = delete;

  HKEY get() const noexcept { return handle_; }

 private:
  explicit RegistryKey(HKEY handle) noexcept : handle_(handle) {}

  HKEY handle_;
};

}  // namespace velmosav
