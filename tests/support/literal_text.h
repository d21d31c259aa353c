// Texts as the literal transcriptions of the algorithms treat them.
#pragma once

#include <string>

namespace literal {

/// Without the blanks at both ends.
inline std::wstring trim(std::wstring text) {
  while (!text.empty() && text.front() == L' ') text.erase(0, 1);
  while (!text.empty() && text.back() == L' ') text.pop_back();
  return text;
}

}  // namespace literal
