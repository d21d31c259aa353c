#include "support/malloc_spy.h"

namespace host {

void MallocSpy::watch() {
  // The platform keeps freed texts for the next ones: every free must be seen.
  using SetOaNoCache = void(WINAPI*)();
  if (const FARPROC address = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")) {
    reinterpret_cast<SetOaNoCache>(reinterpret_cast<void*>(address))();
  }
  EXPECT_EQ(S_OK, CoRegisterMallocSpy(this));
  // The platform looks through the blocks allocated since as if there were one at least.
  CoTaskMemFree(CoTaskMemAlloc(1));
}

HRESULT MallocSpy::QueryInterface(REFIID iid, void** object) {
  if (iid != IID_IUnknown && iid != IID_IMallocSpy) return E_NOINTERFACE;
  *object = this;
  return S_OK;
}

}  // namespace host
