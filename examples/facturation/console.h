// Text on the console, in UTF-8 whatever the code page was, and the conversions to and from UTF-16.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace facturation {

/// Sets the console to UTF-8 and gives it back as it was.
class Utf8Console {
 public:
  Utf8Console();
  ~Utf8Console();
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  UINT previous_;
};

void print(std::string_view text);
void print_error(std::string_view text);

/// True when a user looks at the error stream, so that a line may be redrawn.
bool error_stream_is_console();

std::wstring to_utf16(std::string_view text);
std::string to_utf8(std::wstring_view text);

/// Characters that the text takes on the screen.
std::size_t width(std::string_view utf8);

}  // namespace facturation
