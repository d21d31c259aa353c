#include "registry.h"

namespace diagnostic {

std::optional<std::wstring> read_text(HKEY root, const std::wstring& key, const wchar_t* name) {
  // Whoever changes the value meanwhile makes the second call fail, which then counts as missing.
  DWORD size = 0;
  if (RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(std::char_traits<wchar_t>::length(text.c_str()));
  return text;
}

std::wstring text_of(REFGUID id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring server_key(REFCLSID clsid) { return L"CLSID\\" + text_of(clsid) + L"\\InprocServer32"; }

std::wstring without_quotes(std::wstring path) {
  if (path.size() >= 2 && path.front() == L'"' && path.back() == L'"') {
    return path.substr(1, path.size() - 2);
  }
  return path;
}

bool same_path(const std::wstring& left, const std::wstring& right) {
  return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace diagnostic
