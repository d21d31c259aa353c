#include "automation/text.h"

#include <algorithm>
#include <limits>

#include "automation/fault.h"

namespace velmosav {
namespace {

UINT checked_length(std::size_t length) {
  if (length > std::numeric_limits<UINT>::max() / sizeof(wchar_t) - 16) raise(E_OUTOFMEMORY);
  return static_cast<UINT>(length);
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), checked_length(text.size()))) {
  if (!text_) raise(E_OUTOFMEMORY);
}

Bstr Bstr::of_length(std::size_t length) {
  Bstr text = attach(SysAllocStringLen(nullptr, checked_length(length)));
  if (!text.text_) raise(E_OUTOFMEMORY);
  return text;
}

void assign(BSTR& field, std::wstring_view text) { assign(field, Bstr(text)); }

std::wstring_view trim(std::wstring_view text) noexcept {
  const auto first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

Bstr upper(std::wstring_view text) {
  Bstr result(text);
  if (!text.empty()) CharUpperBuffW(result.get(), static_cast<DWORD>(text.size()));
  return result;
}

Bstr concat(std::initializer_list<std::wstring_view> parts) {
  std::size_t length = 0;
  for (const auto part : parts) length += part.size();
  Bstr result = Bstr::of_length(length);
  wchar_t* end = result.get();
  for (const auto part : parts) end = std::copy(part.begin(), part.end(), end);
  return result;
}

}  // namespace velmosav
