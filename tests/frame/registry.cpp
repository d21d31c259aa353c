#include "frame/registry.h"

#include <algorithm>
#include <cstdio>

namespace host {
namespace {

constexpr DWORD kLongestName = 1024;

void dump_values(HKEY key, const std::string& path, std::vector<std::string>& lines) {
  std::vector<BYTE> data(1 << 16);
  for (DWORD i = 0;; ++i) {
    wchar_t name[kLongestName];
    DWORD length = kLongestName, type = 0, size = static_cast<DWORD>(data.size());
    const LSTATUS status = RegEnumValueW(key, i, name, &length, nullptr, &type, data.data(), &size);
    if (status == ERROR_MORE_DATA) {
      data.resize(2 * data.size());
      --i;
      continue;
    }
    if (status != ERROR_SUCCESS) return;
    std::string line = path + "|" + utf8({name, length}) + " = " + std::to_string(type) + ": ";
    if (type == REG_SZ && size >= sizeof(wchar_t)) {
      line += utf8({reinterpret_cast<const wchar_t*>(data.data()), size / sizeof(wchar_t) - 1});
    } else {
      for (DWORD b = 0; b < size; ++b) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", data[b]);
        line += digits;
      }
    }
    lines.push_back(std::move(line));
  }
}

void dump_key(HKEY parent, const std::wstring& key, const std::string& path,
              std::vector<std::string>& lines) {
  HKEY handle = nullptr;
  if (RegOpenKeyExW(parent, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return;
  lines.push_back(path);
  dump_values(handle, path, lines);
  wchar_t name[kLongestName];
  for (DWORD i = 0, length = kLongestName;
       RegEnumKeyExW(handle, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i, length = kLongestName) {
    dump_key(handle, name, path + "\\" + utf8(name), lines);
  }
  RegCloseKey(handle);
}

}  // namespace

std::vector<std::string> registry_dump(HKEY root, const std::wstring& key) {
  std::vector<std::string> lines;
  dump_key(root, key, "", lines);
  std::sort(lines.begin(), lines.end());
  return lines;
}

std::wstring class_value(const std::wstring& key, const std::wstring& name) {
  wchar_t text[kLongestName];
  DWORD size = sizeof text;
  const LSTATUS status =
      RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text, &size);
  return status == ERROR_SUCCESS ? text : L"(none)";
}

bool class_key_exists(const std::wstring& key) {
  HKEY handle = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return false;
  RegCloseKey(handle);
  return true;
}

std::wstring guid_text(REFGUID id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

}  // namespace host
