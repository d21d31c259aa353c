// Texts: the owner of a BSTR, views on texts that belong to the host, and the few operations on them.
//
// A null BSTR is the empty text everywhere. Views never outlive the call.
#pragma once

#include "automation/platform.h"

#include <string_view>
#include <utility>

namespace velmosav {

/// Owner of a BSTR. No conversion from a raw BSTR: the verb tells who owns what.
class Bstr {
 public:
  constexpr Bstr() noexcept = default;
  /// Allocates a copy of `text`; throws E_OUTOFMEMORY.
  explicit Bstr(std::wstring_view text);
  Bstr(Bstr&& other) noexcept : text_(other.detach()) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  [[nodiscard]] static Bstr attach(BSTR text) noexcept {
    Bstr owner;
    owner.text_ = text;
    return owner;
  }
  /// A text of `length` characters for the caller to fill.
  [[nodiscard]] static Bstr of_length(std::size_t length);

  [[nodiscard]] BSTR get() const noexcept { return text_; }
  [[nodiscard]] std::wstring_view view() const noexcept { return {text_, SysStringLen(text_)}; }
  [[nodiscard]] BSTR* receive() noexcept {
    *this = Bstr();
    return &text_;
  }
  [[nodiscard]] BSTR detach() noexcept { return std::exchange(text_, nullptr); }
  void swap(BSTR& other) noexcept { std::swap(text_, other); }

 private:
  BSTR text_ = nullptr;
};

/// A text lent to a callee that only reads it. A short one lies in the owner itself, laid out as a BSTR: its
/// length in bytes, its characters, a null.
class LentText {
 public:
  explicit LentText(std::wstring_view text);
  LentText(const LentText&) = delete;
  LentText& operator=(const LentText&) = delete;

  /// Not to be freed or changed.
  [[nodiscard]] BSTR get() noexcept { return long_.get() ? long_.get() : short_.text; }

 private:
  static constexpr std::size_t kShort = 62;
  struct {
    UINT bytes;
    wchar_t text[kShort + 1];
  } short_;
  Bstr long_;
};

/// Borrows a text of the host.
inline std::wstring_view view(BSTR text) noexcept { return {text, SysStringLen(text)}; }

/// Replaces a text field of the host in place; the former text stays when memory lacks.
void assign(BSTR& field, std::wstring_view text);
/// Hands a text over to a field of the host; cannot fail.
inline void assign(BSTR& field, Bstr text) noexcept { text.swap(field); }

/// Takes characters out of a text of the host in place; the text stays when memory lacks.
void erase(BSTR& field, std::size_t place, std::size_t count);

/// Without the blanks (U+0020 only) at both ends.
std::wstring_view trim(std::wstring_view text) noexcept;
inline bool is_blank(std::wstring_view text) noexcept {
  return text.find_first_not_of(L' ') == std::wstring_view::npos;
}

/// Upper case by the user's locale; same length.
Bstr upper(std::wstring_view text);

/// Joins texts with one allocation.
Bstr concat(std::initializer_list<std::wstring_view> parts);

}  // namespace velmosav
