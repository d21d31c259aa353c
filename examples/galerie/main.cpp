// The gallery of the controls that the library serves. Option: --visite SECONDES, the window shows itself and
// closes.
#include <windows.h>
#include <ole2.h>

#include <cstdlib>
#include <string_view>

#include "gallery.h"

namespace {

UINT visit_seconds(int count, wchar_t** words) {
  for (int i = 1; i + 1 < count; ++i) {
    if (std::wstring_view(words[i]) == L"--visite")
      return static_cast<UINT>(std::wcstoul(words[i + 1], nullptr, 10));
  }
  return 0;
}

int run() {
  galerie::Library library;
  galerie::Gallery gallery(library);
  gallery.show();
  if (const UINT seconds = visit_seconds(__argc, __wargv)) gallery.visit(seconds);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
  if (FAILED(CoInitialize(nullptr))) return 2;
  int result = 1;
  try {
    result = run();
  } catch (const galerie::Failure& failure) {
    MessageBoxW(nullptr, failure.message.c_str(), L"Galerie VelmoSAV", MB_ICONERROR);
  }
  CoUninitialize();
  return result;
}
