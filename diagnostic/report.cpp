#include "report.h"

#include <algorithm>

namespace diagnostic {
namespace {

constexpr std::size_t kMarkWidth = 7;
constexpr std::size_t kCheckWidth = 24;

void print(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(
                        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                    '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                      nullptr);
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
            nullptr);
}

std::wstring padded(std::wstring_view text, std::size_t width) {
  std::wstring result(text);
  result.resize(std::max(width, result.size() + 1), L' ');
  return result;
}

}  // namespace

Report::Report() : console_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }

Report::~Report() {
  if (console_) SetConsoleOutputCP(console_);
}

void Report::title(std::wstring_view text) { print(L"\r\n" + std::wstring(text) + L"\r\n"); }

void Report::line(std::wstring_view mark, std::wstring_view check, std::wstring_view finding) {
  print(padded(mark, kMarkWidth) + padded(check, kCheckWidth) + std::wstring(finding) + L"\r\n");
}

void Report::well(std::wstring_view check, std::wstring_view finding) { line(L"OK", check, finding); }

void Report::failure(std::wstring_view check, std::wstring_view finding, std::wstring_view advice) {
  ++failures_;
  line(L"ÉCHEC", check, finding);
  if (!advice.empty()) print(padded(L"", kMarkWidth) + L"-> " + std::wstring(advice) + L"\r\n");
}

void Report::pointless(std::wstring_view check, std::wstring_view finding) { line(L"--", check, finding); }

void Report::information(std::wstring_view check, std::wstring_view finding) {
  line(L"info", check, finding);
}

void Report::verdict() {
  print(L"\r\n");
  if (failures_ == 0) {
    print(L"Tout va bien.\r\n");
  } else if (failures_ == 1) {
    print(L"1 vérification en échec.\r\n");
  } else {
    print(std::to_wstring(failures_) + L" vérifications en échec.\r\n");
  }
}

std::wstring message_of(HRESULT code) {
  wchar_t number[16];
  wsprintfW(number, L"0x%08lX", code);
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring message(text ? text : L"", length);
  LocalFree(text);
  while (!message.empty() && (message.back() <= L' ' || message.back() == L'.')) message.pop_back();
  return message.empty() ? number : std::wstring(number) + L" (" + message + L")";
}

}  // namespace diagnostic
