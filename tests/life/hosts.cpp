#include "life/host_run.h"
#include "life/usage.h"

namespace life {
namespace {

using Objects = std::vector<host::ComPtr<IDispatch>>;

/// Objects of every class, used and never released.
bool keep_objects() {
  int failures = 0;
  auto* const objects = new Objects(create_all(failures));
  for (std::size_t i = 0; i < objects->size(); ++i)
    failures += !use((*objects)[i].get(), host::catalogue()[i]);
  return failures == 0;
}

DWORD WINAPI use_without_end(void*) {
  if (FAILED(CoInitialize(nullptr))) return 1;
  for (;;) {
    int failures = 0;
    const Objects objects = create_all(failures);
    for (std::size_t i = 0; i < objects.size(); ++i) use(objects[i].get(), host::catalogue()[i]);
  }
}

/// One of many threads of the shared apartment: the objects live in one that COM makes for them, and are
/// reached through its proxies.
DWORD WINAPI use_from_shared_apartment(void*) {
  if (FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) return 1;
  int failures = 0;
  for (int round = 0; round < 2; ++round) {
    const Objects objects = create_all(failures);
    for (std::size_t i = 0; i < objects.size(); ++i) {
      const host::CatalogueEntry& entry = host::catalogue()[i];
      failures += !use(objects[i].get(), entry) || !use_early_bound(objects[i].get(), entry);
    }
  }
  CoUninitialize();
  return static_cast<DWORD>(failures);
}

/// The failures of the thread, which it waits for.
DWORD failures_of(HANDLE thread) {
  DWORD failures = 1;
  WaitForSingleObject(thread, INFINITE);
  GetExitCodeThread(thread, &failures);
  CloseHandle(thread);
  return failures;
}

DWORD WINAPI sixteen_in_shared_apartment(void*) {
  if (FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) return 1;
  int lost = 0;
  {
    const Objects objects = create_all(lost);
    const KeptProxies kept = keep_proxies(objects, lost);
    HANDLE threads[16];
    for (HANDLE& thread : threads) {
      thread = CreateThread(nullptr, 0, use_from_shared_apartment, nullptr, 0, nullptr);
    }
    for (const HANDLE thread : threads) lost += static_cast<int>(failures_of(thread));
  }
  CoUninitialize();
  return static_cast<DWORD>(lost);
}

}  // namespace

int host_main(const std::string& name) {
  if (FAILED(CoInitialize(nullptr))) return 1;
  const bool kept = keep_objects();
  if (name == "uninitializes") {
    CoUninitialize();
  } else if (name == "uninitializes and starts again") {
    for (int i = 0; i < 3; ++i) {
      CoUninitialize();
      if (FAILED(CoInitialize(nullptr)) || !keep_objects()) return 2;
    }
  } else if (name == "unloads") {
    // What COM holds keeps the DLL; a loading of the host's own is given back.
    const HMODULE own = LoadLibraryW(host::library_path().c_str());
    FreeLibrary(own);
    CoFreeUnusedLibrariesEx(0, 0);
    if (!keep_objects()) return 3;
  } else if (name == "locks") {
    host::ComPtr<IClassFactory> factory;
    CoGetClassObject(host::catalogue().front().clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                     factory.receive_void());
    factory.detach()->LockServer(TRUE);
  } else if (name == "has sixteen threads in the shared apartment") {
    if (failures_of(CreateThread(nullptr, 0, sixteen_in_shared_apartment, nullptr, 0, nullptr)) != 0)
      return 7;
  } else if (name == "ends amid calls") {
    for (int i = 0; i < 4; ++i) CloseHandle(CreateThread(nullptr, 0, use_without_end, nullptr, 0, nullptr));
    Sleep(300);
    ExitProcess(kept ? kDone : 4);
  } else if (name != "only ends") {
    return 5;
  }
  return kept ? kDone : 6;
}

DWORD run_host(const std::string& name) {
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring command =
      L"\"" + std::wstring(program) + L"\" --host \"" + std::wstring(name.begin(), name.end()) + L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(program, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    return GetLastError();
  }
  DWORD code = WaitForSingleObject(process.hProcess, 120'000);
  if (code == WAIT_OBJECT_0) {
    GetExitCodeProcess(process.hProcess, &code);
  } else {
    TerminateProcess(process.hProcess, 1);
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

}  // namespace life
