#include "automation/number_text.h"

#include <charconv>
#include <string>

#include "automation/fault.h"
#include "automation/variant.h"

namespace velmosav {

Bstr number_text(double value) {
  Bstr text;
  check_conversion(VarBstrFromR8(value, LOCALE_USER_DEFAULT, 0, text.receive()));
  return text;
}

Bstr fixed_number_text(double value, int decimals) {
  std::wstring pattern = L"0";
  if (decimals > 0) pattern.append(1, L'.').append(static_cast<std::size_t>(decimals), L'0');
  Variant number(value);
  Bstr format(pattern);
  Bstr text;
  check_conversion(VarFormat(&number.get(), format.get(), 0, 0, 0, text.receive()));
  return text;
}

Bstr whole_number_text(long value) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  Bstr text = Bstr::of_length(static_cast<std::size_t>(end - digits));
  std::copy(digits, end, text.get());
  return text;
}

}  // namespace velmosav
