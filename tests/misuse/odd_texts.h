// Generated texts: what a field or parameter of that name may hold, words of the library's own constants,
// and texts that nobody should pass.
#pragma once

#include <string>
#include <vector>

#include "misuse/dice.h"
#include "support/host.h"

namespace misuse {

class OddTexts {
 public:
  /// Takes the library's constants as words, and one invoice and one file as plausible contents.
  OddTexts();
  ~OddTexts();
  OddTexts(const OddTexts&) = delete;
  OddTexts& operator=(const OddTexts&) = delete;

  /// The program whose translation link misbehaves; another in each process.
  static std::wstring host_name();

  /// A text for something named `name`; null, empty, plausible, odd or very long.
  BSTR text(Dice& dice, std::wstring_view name) const;

 private:
  using Words = std::vector<std::wstring>;

  [[nodiscard]] const Words& plausible(std::wstring_view name) const;
  [[nodiscard]] const Words& any(Dice& dice) const;

  Words constants_, invoices_, files_, hosts_;
};

}  // namespace misuse
