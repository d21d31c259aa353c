#include "misuse/watch.h"

#include "automation/platform.h"

#include <atomic>
#include <csignal>
#include <cstdio>

#include "support/host.h"

namespace misuse::watch {
namespace {

constexpr DWORD kLook = 100;                 // milliseconds between two looks
constexpr long long kMostTime = 10'000'000;  // of the processor, in units of 100 ns
constexpr long long kEndlessTime = 20 * kMostTime;
constexpr unsigned kMostLooks = 3000;  // at a call that waits for something

std::uint64_t printed_seed;
HANDLE main_thread;
std::atomic<const wchar_t*> current_class{nullptr};
std::atomic<const wchar_t*> current_member{nullptr};
std::atomic<std::uint64_t> current_number{0};
std::atomic<std::uint32_t> entries{0};  // odd while a call runs
std::atomic<std::uint32_t> slow_entry{0};

void print_current(const char* what) {
  const wchar_t* class_name = current_class;
  std::printf(
      "\nMISUSE %s: %s.%s seed %llu number %llu\n", what, class_name ? host::utf8(class_name).c_str() : "",
      current_member ? host::utf8(current_member.load()).c_str() : "",
      static_cast<unsigned long long>(printed_seed), static_cast<unsigned long long>(current_number.load()));
  std::fflush(stdout);
}

void print_place(const char* what, const void* address) {
  char name[MAX_PATH] = "?";
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     static_cast<const wchar_t*>(address), &module);
  if (module) GetModuleFileNameA(module, name, MAX_PATH);
  std::printf("MISUSE %s %s+%lx\n", what, name,
              static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(address) -
                                         reinterpret_cast<std::uintptr_t>(module)));
}

/// Words on the stack that are addresses of code: the callers, among a few that are not.
void print_callers(const CONTEXT& context) {
  constexpr unsigned kWords = 400, kMost = 24;
  const auto* stack = reinterpret_cast<const void* const*>(static_cast<std::uintptr_t>(context.Esp));
  unsigned printed = 0;
  for (unsigned i = 0; i < kWords && printed < kMost; ++i) {
    MEMORY_BASIC_INFORMATION region;
    if (IsBadReadPtr(stack + i, sizeof(void*))) return;
    if (VirtualQuery(stack[i], &region, sizeof region) == 0 || region.Type != MEM_IMAGE ||
        !(region.Protect & (PAGE_EXECUTE_READ | PAGE_EXECUTE_WRITECOPY | PAGE_EXECUTE_READWRITE))) {
      continue;
    }
    print_place("  called from", stack[i]);
    ++printed;
  }
}

LONG WINAPI crashed(EXCEPTION_POINTERS* exception) {
  print_current("crash");
  std::printf("MISUSE exception %08lx\n", exception->ExceptionRecord->ExceptionCode);
  print_place("exception at", exception->ExceptionRecord->ExceptionAddress);
  print_callers(*exception->ContextRecord);
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), kCrashed);
  return EXCEPTION_EXECUTE_HANDLER;
}

void aborted(int) {
  print_current("an exception left the library");
  TerminateProcess(GetCurrentProcess(), kCrashed);
}

long long processor_time() {
  FILETIME created, ended, kernel, user;
  if (!GetThreadTimes(main_thread, &created, &ended, &kernel, &user)) return 0;
  const auto value = [](const FILETIME& time) {
    return static_cast<long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  };
  return value(kernel) + value(user);
}

DWORD WINAPI look_on(void*) {
  std::uint32_t seen = 0;
  unsigned looks = 0;
  long long start = 0;
  for (;;) {
    Sleep(kLook);
    const std::uint32_t entry = entries;
    if (entry != seen || entry % 2 == 0) {
      seen = entry;
      looks = 0;
      start = processor_time();
      continue;
    }
    const long long used = processor_time() - start;
    if (used > kMostTime) slow_entry = entry;
    if (used > kEndlessTime || ++looks > kMostLooks) {
      print_current("a call without end");
      TerminateProcess(GetCurrentProcess(), kEndless);
    }
  }
}

}  // namespace

void start(std::uint64_t seed) {
  printed_seed = seed;
  static const bool started = [] {
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &main_thread, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    SetUnhandledExceptionFilter(crashed);
    std::signal(SIGABRT, aborted);
    return CreateThread(nullptr, 0, look_on, nullptr, 0, nullptr) != nullptr;
  }();
  (void)started;
}

void enter(const wchar_t* class_name, const wchar_t* member, std::uint64_t number) {
  current_class = class_name;
  current_member = member;
  current_number = number;
  ++entries;
}

bool leave() { return slow_entry == entries++; }

}  // namespace misuse::watch
