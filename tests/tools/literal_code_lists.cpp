#include "tools/literal_code_lists.h"

#include "support/literal_text.h"

namespace literal {
namespace {

const std::wstring kQuote = L"\"";
const std::wstring kSeparator = L",";

}  // namespace

std::wstring next_token(std::wstring& text, const std::wstring& separator) {
  const std::size_t place = text.find(separator);
  std::wstring token = text.substr(0, place);
  if (place == std::wstring::npos) {
    text.clear();
  } else {
    text.erase(0, place + separator.size());
  }
  return token;
}

std::wstring string_for_sql(const std::wstring& value) {
  std::wstring result;
  std::wstring rest = value;
  while (!rest.empty()) {
    const std::size_t length = rest.size();
    const std::wstring piece = next_token(rest, kQuote);
    result += piece;
    if (!(piece.size() == length && rest.empty())) result += kQuote + kQuote;
  }
  return kQuote + result + kQuote;
}

void append_code(std::wstring& list, const std::wstring& code) {
  if (!list.empty()) list = list + kSeparator + L" ";
  list = list + string_for_sql(code);
}

std::wstring next_code(std::wstring& list) {
  std::wstring token;
  if (list.substr(0, 1) == kQuote) {
    next_token(list, kQuote);
    token = next_token(list, kQuote);
    if (!trim(list).empty() && list.substr(0, 1) == kSeparator) list = trim(list.substr(1));
  }
  return token;
}

short count_codes(std::wstring list) {
  int count = 0;
  while (!list.empty()) {
    next_code(list);
    if (++count > 32767) throw RunTimeFault{6};
  }
  return static_cast<short>(count);
}

void extract_code(std::wstring& list, const std::wstring& code) {
  if (trim(list).empty() || trim(code).empty()) return;
  const std::wstring quoted = string_for_sql(code);
  for (const std::wstring& candidate : {quoted + kSeparator + L" ", quoted + kSeparator, quoted}) {
    if (list.find(candidate) == std::wstring::npos) continue;
    const std::wstring before = next_token(list, candidate);
    list = before + list;
    return;
  }
}

}  // namespace literal
