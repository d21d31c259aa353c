// Dates as text, day first: those of the files (JJ/MM/AAAA) and those of the library (two-digit year).
#pragma once

#include <windows.h>
#include <ole2.h>

#include <optional>
#include <string>
#include <string_view>

namespace facturation {

/// The day of a text in the form JJ/MM/AAAA; nothing for any other text or a day that does not exist.
std::optional<DATE> parse_day(std::string_view text);

/// The day that the library reads in a text: the platform's reading, with the user's regional settings.
std::optional<DATE> platform_day(BSTR text);

/// False when the year, written with two digits as the library does, would be read back as another.
bool survives_two_digits(std::string_view day);

/// False when this session's regional settings do not put the day first.
bool session_is_day_first();

}  // namespace facturation
