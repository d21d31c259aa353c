#include "reference/shown.h"

#include <cstdio>

namespace reference {

std::string shown(BSTR text) { return sav::utf8(text); }

std::string shown_number(long number) {
  char text[16];
  const bool is_failure = number < -0x10000;
  std::snprintf(text, sizeof text, is_failure ? "0x%08lX" : "%ld", number);
  return text;
}

std::string shown(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", number);
  return text;
}

std::string shown(const VARIANT& value) {
  VARIANT text{};
  sav::check(VariantChangeTypeEx(&text, const_cast<VARIANT*>(&value), LOCALE_USER_DEFAULT, 0, VT_BSTR));
  std::string result = sav::utf8(text.bstrVal);
  VariantClear(&text);
  return result;
}

std::string shown(CY amount) {
  VARIANT value{};
  value.vt = VT_CY;
  value.cyVal = amount;
  return shown(value);
}

}  // namespace reference
