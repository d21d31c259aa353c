#include "automation/module.h"

#include "automation/platform.h"

#include <atomic>

#include "automation/fault.h"

// Provided by the linker: the first byte of the image that holds this code.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace velmosav::module {
namespace {

std::atomic<long> references{0};
std::atomic<long> locks{0};
SRWLOCK cache_lock = SRWLOCK_INIT;

constexpr int kMostCaches = 4;
void (*releases[kMostCaches])() noexcept = {};
int release_count = 0;

ComPtr<ITypeLib>& cached_library() {
  static ComPtr<ITypeLib> library;
  return library;
}

void release_library() noexcept { cached_library() = nullptr; }

}  // namespace

Reference::Reference() noexcept { references.fetch_add(1); }
Reference::~Reference() { references.fetch_sub(1); }

void lock() noexcept { locks.fetch_add(1); }

void unlock() noexcept {
  // A host that gives back more locks than it took must not unload the library under its objects.
  long held = locks.load();
  while (held > 0 && !locks.compare_exchange_weak(held, held - 1)) {
  }
}

bool can_unload() noexcept {
  const CacheLock guard;
  if (references.load() != 0 || locks.load() != 0) return false;
  for (int i = 0; i < release_count; ++i) releases[i]();
  release_count = 0;
  return true;
}

HINSTANCE instance() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring path() {
  std::wstring result(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(instance(), result.data(), static_cast<DWORD>(result.size()));
    if (length == 0) raise(HRESULT_FROM_WIN32(GetLastError()));
    if (length < result.size()) {
      result.resize(length);
      return result;
    }
    result.resize(2 * result.size());
  }
}

ComPtr<ITypeLib> type_library() {
  const std::wstring file = path();
  const CacheLock guard;
  ComPtr<ITypeLib>& library = cached_library();
  if (!library) {
    check(LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.receive()));
    on_idle(release_library);
  }
  return library;
}

void on_idle(void (*release)() noexcept) noexcept {
  for (int i = 0; i < release_count; ++i) {
    if (releases[i] == release) return;
  }
  releases[release_count++] = release;
}

CacheLock::CacheLock() noexcept { AcquireSRWLockExclusive(&cache_lock); }
CacheLock::~CacheLock() { ReleaseSRWLockExclusive(&cache_lock); }

}  // namespace velmosav::module
