#include "console.h"

#include <algorithm>

namespace facturation {
namespace {

// One write per text: a console shows a split multi-byte character as two wrong ones.
void write(DWORD stream, std::string_view text) {
  const HANDLE handle = GetStdHandle(stream);
  while (!text.empty()) {
    DWORD written = 0;
    if (!WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) || !written)
      return;
    text.remove_prefix(written);
  }
}

}  // namespace

Utf8Console::Utf8Console() : previous_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }

Utf8Console::~Utf8Console() {
  if (previous_) SetConsoleOutputCP(previous_);
}

void print(std::string_view text) { write(STD_OUTPUT_HANDLE, text); }

void print_error(std::string_view text) { write(STD_ERROR_HANDLE, text); }

bool error_stream_is_console() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

std::wstring to_utf16(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring result(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()));
  return result;
}

std::string to_utf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string result(static_cast<std::size_t>(
                         WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                     '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()), nullptr,
                      nullptr);
  return result;
}

std::size_t width(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace facturation
