// Holds a file as the system holds a loaded library: others may read it, none may write it.
// (Wine lets a loaded library be written.)
#include <windows.h>

#include <cstdio>

int wmain(int count, wchar_t** words) {
  constexpr DWORD kTenMinutes = 600'000;
  if (count != 2) return 2;
  if (CreateFileW(words[1], GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr) ==
      INVALID_HANDLE_VALUE) {
    return 1;
  }
  std::puts("held");
  std::fflush(stdout);
  Sleep(kTenMinutes);
  return 0;
}
