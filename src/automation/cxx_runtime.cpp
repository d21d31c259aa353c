// The parts of the C++ run-time that every fault needs, without any allocation: the memory of an exception,
// what a thread knows of its exceptions in flight, and the guards of function-local statics.
//
// The standard library's own ones set up threads' data and locks on the heap at their first use. When memory
// has just run out that is the moment of the first exception, and the host would go down with it. The
// functions below are those of the C++ ABI; the linker takes them instead of the library's. What the unwinder
// sets up is set up when the DLL is loaded: a load can fail.
#include "automation/platform.h"

#include <intrin.h>
#include <unwind.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace {

// --- exceptions
// -----------------------------------------------------------------------------------------------

/// Room before the thrown object for the run-time's header, which ends where the object starts.
constexpr std::size_t kHeader = 256;
constexpr std::size_t kPlaceSize = 512;
constexpr std::size_t kPlaces = 128;

/// A place for each of the exceptions that are in flight at one time, over all threads.
struct Places {
  alignas(16) std::array<std::array<char, kPlaceSize>, kPlaces> bytes;
  std::array<std::atomic<bool>, kPlaces> taken;
};
constinit Places places{};

void* take_place() noexcept {
  for (std::size_t i = 0; i < kPlaces; ++i) {
    if (!places.taken[i].load(std::memory_order_relaxed) &&
        !places.taken[i].exchange(true, std::memory_order_acquire)) {
      return places.bytes[i].data();
    }
  }
  return nullptr;
}

void* allocate_exception(std::size_t size) noexcept {
  void* block = size + kHeader <= kPlaceSize ? take_place() : nullptr;
  if (!block) block = std::malloc(size + kHeader);
  if (!block) std::terminate();
  std::memset(block, 0, kHeader);
  return static_cast<char*>(block) + kHeader;
}

void free_exception(void* object) noexcept {
  auto* const block = static_cast<char*>(object) - kHeader;
  const auto distance =
      reinterpret_cast<std::uintptr_t>(block) - reinterpret_cast<std::uintptr_t>(places.bytes.data()->data());
  if (distance < sizeof places.bytes) {
    places.taken[distance / kPlaceSize].store(false, std::memory_order_release);
  } else {
    std::free(block);
  }
}

/// What the ABI keeps for each thread.
struct ThreadExceptions {
  void* caught;
  unsigned int uncaught;
};

// In the image's own thread-local storage, which the loader sets up with the thread. The compiler's keyword
// would allocate at the first use.
[[gnu::section(".tls$Velmo")]] ThreadExceptions thread_exceptions{nullptr, 0};

// --- the unwinder
// ---------------------------------------------------------------------------------------------

/// Looks one frame up, which makes the unwinder's tables and locks ready.
bool prepare_unwinder() noexcept {
  _Unwind_Backtrace([](_Unwind_Context*, void*) { return _URC_END_OF_STACK; }, nullptr);
  return true;
}
[[maybe_unused]] const bool unwinder_is_ready = prepare_unwinder();

// --- function-local statics
// -----------------------------------------------------------------------------------

SRWLOCK guard_lock = SRWLOCK_INIT;
CONDITION_VARIABLE guard_changed = CONDITION_VARIABLE_INIT;

/// The compiler's flag of one static: it reads the first byte itself, which is not 0 once the static is
/// ready.
struct Guard {
  std::atomic<unsigned char> ready;
  unsigned char busy;
};
Guard& guard_of(long long* flag) noexcept { return *reinterpret_cast<Guard*>(flag); }

/// Ends the making of a static; others that wait for it look again.
void leave(long long* flag, bool ready) noexcept {
  AcquireSRWLockExclusive(&guard_lock);
  if (ready) guard_of(flag).ready.store(1, std::memory_order_release);
  guard_of(flag).busy = 0;
  ReleaseSRWLockExclusive(&guard_lock);
  WakeAllConditionVariable(&guard_changed);
}

}  // namespace

extern "C" {

extern ULONG _tls_index;
extern char _tls_start;

void* __cxa_allocate_exception(std::size_t size) noexcept { return allocate_exception(size); }
void __cxa_free_exception(void* object) noexcept { free_exception(object); }
void* __cxa_allocate_dependent_exception() noexcept { return allocate_exception(0); }
void __cxa_free_dependent_exception(void* object) noexcept { free_exception(object); }

// The compiler takes the small address for one inside a null object; it counts from the thread's block.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
ThreadExceptions* __cxa_get_globals() noexcept {
  constexpr unsigned long kThreadLocalStorage = 0x2C;  // of the thread's block, on 32-bit Windows
  char* const* const storage = reinterpret_cast<char* const*>(__readfsdword(kThreadLocalStorage));
  return reinterpret_cast<ThreadExceptions*>(storage[_tls_index] +
                                             (reinterpret_cast<char*>(&thread_exceptions) - &_tls_start));
}
#pragma GCC diagnostic pop
ThreadExceptions* __cxa_get_globals_fast() noexcept { return __cxa_get_globals(); }

int __cxa_guard_acquire(long long* flag) noexcept {
  Guard& guard = guard_of(flag);
  AcquireSRWLockExclusive(&guard_lock);
  while (!guard.ready.load(std::memory_order_relaxed) && guard.busy) {
    SleepConditionVariableSRW(&guard_changed, &guard_lock, INFINITE, 0);
  }
  const bool mine = !guard.ready.load(std::memory_order_relaxed);
  if (mine) guard.busy = 1;
  ReleaseSRWLockExclusive(&guard_lock);
  return mine;
}
void __cxa_guard_release(long long* flag) noexcept { leave(flag, true); }
void __cxa_guard_abort(long long* flag) noexcept { leave(flag, false); }

/// Stands in for the threads library's function of that name, which takes a slot of thread-local storage from
/// the process and never gives it back: a process has about a thousand, and the unwinder asks at each load of
/// the DLL.
int __wrap_pthread_once(long* once, void (*initialise)()) noexcept {
  constexpr long kNever = 0, kDone = 1, kBusy = 2;
  AcquireSRWLockExclusive(&guard_lock);
  while (*once == kBusy) SleepConditionVariableSRW(&guard_changed, &guard_lock, INFINITE, 0);
  const bool mine = *once == kNever;
  if (mine) *once = kBusy;
  ReleaseSRWLockExclusive(&guard_lock);
  if (!mine) return 0;
  initialise();
  AcquireSRWLockExclusive(&guard_lock);
  *once = kDone;
  ReleaseSRWLockExclusive(&guard_lock);
  WakeAllConditionVariable(&guard_changed);
  return 0;
}

// Likewise: a plain mutex of that library is a block of memory from its first use on, which nothing frees
// when the DLL goes. Here the variable itself says whether it is held.
constexpr long kFreeMutex = -1, kHeldMutex = 1;
int __real_pthread_mutex_lock(long* mutex) noexcept;
int __real_pthread_mutex_unlock(long* mutex) noexcept;

int __wrap_pthread_mutex_lock(long* mutex) noexcept {
  AcquireSRWLockExclusive(&guard_lock);
  const bool plain = *mutex == kFreeMutex || *mutex == kHeldMutex;
  while (plain && *mutex == kHeldMutex) {
    SleepConditionVariableSRW(&guard_changed, &guard_lock, INFINITE, 0);
  }
  if (plain) *mutex = kHeldMutex;
  ReleaseSRWLockExclusive(&guard_lock);
  return plain ? 0 : __real_pthread_mutex_lock(mutex);
}
int __wrap_pthread_mutex_unlock(long* mutex) noexcept {
  if (*mutex != kHeldMutex) return __real_pthread_mutex_unlock(mutex);
  AcquireSRWLockExclusive(&guard_lock);
  *mutex = kFreeMutex;
  ReleaseSRWLockExclusive(&guard_lock);
  WakeAllConditionVariable(&guard_changed);
  return 0;
}

}  // extern "C"
