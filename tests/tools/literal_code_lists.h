// Code lists, transcribed step by step with the token reader that consumes its text. The yardstick of the
// random comparisons: it must never ship, it copies the whole list at each code.
#pragma once

#include "support/literal_fault.h"

#include <string>

namespace literal {

/// The text before the first separator, which is taken off the text with it.
std::wstring next_token(std::wstring& text, const std::wstring& separator);

std::wstring string_for_sql(const std::wstring& value);
void append_code(std::wstring& list, const std::wstring& code);
std::wstring next_code(std::wstring& list);
short count_codes(std::wstring list);
void extract_code(std::wstring& list, const std::wstring& code);

}  // namespace literal
