#include "automation/text.h"

#include <algorithm>
#include <limits>
#include <string>

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

LentText::LentText(std::wstring_view text) {
  if (text.size() > kShort) {
    long_ = Bstr(text);
    return;
  }
  short_.bytes = static_cast<UINT>(text.size() * sizeof(wchar_t));
  *std::copy(text.begin(), text.end(), short_.text) = L'\0';
}

void assign(BSTR& field, std::wstring_view text) { assign(field, Bstr(text)); }

void erase(BSTR& field, std::size_t place, std::size_t count) {
  const std::wstring_view text = view(field);
  const std::wstring removed(text.substr(place, count));
  if (removed.empty()) return;
  wchar_t* const gap = field + place;
  wchar_t* const end = field + text.size();
  std::move(gap + removed.size(), end, gap);
  // Without a source the text keeps the characters that it has.
  if (SysReAllocStringLen(&field, nullptr, static_cast<UINT>(text.size() - removed.size()))) return;
  std::move_backward(gap, end - removed.size(), end);
  std::copy(removed.begin(), removed.end(), gap);
  raise(E_OUTOFMEMORY);
}

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
