// Keys of the registry of classes as they are before a registration, to be put back when it fails.
#pragma once

#include "automation/platform.h"

#include <string>
#include <vector>

namespace velmosav {

class RegistryBackup {
 public:
  /// Notes a key of HKEY_CLASSES_ROOT with everything below it, or that there is none.
  void add(const std::wstring& key);

  /// Makes every key what it was when it was added, as far as the registry lets it. Asks for no memory of
  /// the library's own.
  void restore() const noexcept;

 private:
  struct Value {
    std::wstring name;
    DWORD type;
    std::vector<BYTE> data;
  };
  struct Key {
    std::wstring path;
    std::vector<Value> values;
  };

  void read(const std::wstring& path);

  std::vector<std::wstring> roots_;
  std::vector<Key> keys_;  // each before those below it
};

}  // namespace velmosav
