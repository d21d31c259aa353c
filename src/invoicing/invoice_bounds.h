// What a text must keep to before the DOM reads it: a host may have it from anywhere, and not every version
// of the DOM stands up to nesting without end, to elements of ten thousand attributes or to memory running
// out.
#pragma once

#include <cstddef>
#include <string_view>

namespace velmosav {

/// Room for what the calls write: 32,768 rows, their numbers being 16 bits wide, of a thousand characters
/// each.
struct InvoiceBounds {
  static constexpr std::size_t kCharacters = std::size_t{1} << 25;
  static constexpr std::size_t kParts = 2'000'000;  // elements, attributes, comments, instructions, sections
  static constexpr std::size_t kLevels = 256;
  static constexpr std::size_t kAttributes = 256;  // of an element and those around it
};

/// Whether the DOM may read the text: it begins with markup, keeps to the bounds, and has no document type
/// declaration, no NUL and no half of a surrogate pair. What is wrong otherwise is left to the DOM.
bool keeps_to_bounds(std::wstring_view xml) noexcept;

}  // namespace velmosav
