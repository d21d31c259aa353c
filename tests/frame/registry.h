// The registry of classes, read as text.
#pragma once

#include "support/host.h"

namespace host {

/// Every key and value below `key`, one line each, sorted: "path", "path|name = type: bytes".
std::vector<std::string> registry_dump(HKEY root, const std::wstring& key);

/// A value of HKEY_CLASSES_ROOT; `name` empty for the default one. "(none)" when it is missing.
std::wstring class_value(const std::wstring& key, const std::wstring& name = L"");
bool class_key_exists(const std::wstring& key);

std::wstring guid_text(REFGUID id);

}  // namespace host
