// What the registry says of a class, as COM reads it.
#pragma once

#include "automation/platform.h"

#include <optional>
#include <string>

namespace diagnostic {

/// Where classes are registered for everybody, and for the present user alone.
inline constexpr wchar_t kClasses[] = L"Software\\Classes\\";

/// A text value; nothing where it is missing.
std::optional<std::wstring> read_text(HKEY root, const std::wstring& key, const wchar_t* name = nullptr);

/// As it stands in the registry: {8 digits-...}.
std::wstring text_of(REFGUID id);

/// The key of a class's in-process server, below the root of all classes.
std::wstring server_key(REFCLSID clsid);

/// Registered paths may be quoted, or in another case.
std::wstring without_quotes(std::wstring path);
bool same_path(const std::wstring& left, const std::wstring& right);

}  // namespace diagnostic
