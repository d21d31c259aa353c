#include "support/crashes.h"

#include "automation/platform.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <vector>

namespace host {
namespace {

[[noreturn]] void end_program(const char* what, const void* place) {
  char module_name[MAX_PATH] = "?";
  HMODULE module = nullptr;
  if (GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          static_cast<const wchar_t*>(place), &module)) {
    GetModuleFileNameA(module, module_name, MAX_PATH);
  }
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  std::printf("\nCRASH in %s.%s: %s at %s + %zx\n", test ? test->test_suite_name() : "no test",
              test ? test->name() : "", what, module_name,
              static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(place) -
                                       reinterpret_cast<std::uintptr_t>(module)));
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), kCrashed);
  std::abort();
}

/// At once: a window procedure is called inside a handler of the platform that would let it go on.
LONG CALLBACK trapped(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != EXCEPTION_ILLEGAL_INSTRUCTION) return EXCEPTION_CONTINUE_SEARCH;
  end_program("undefined behaviour", record.ExceptionAddress);
}

LONG WINAPI unhandled(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  char what[32];
  std::snprintf(what, sizeof what, "exception %08lx", record.ExceptionCode);
  end_program(what, record.ExceptionAddress);
}

void aborted(int) { end_program("abort", __builtin_return_address(0)); }

}  // namespace

void report_crashes() {
  AddVectoredExceptionHandler(0, trapped);
  SetUnhandledExceptionFilter(unhandled);
  std::signal(SIGABRT, aborted);
}

void commit_fault(const char* name) {
  if (std::strcmp(name, "overflow") == 0) {
    volatile int number = std::numeric_limits<int>::max();
    number = number + 1;
  } else if (std::strcmp(name, "index") == 0) {
    const std::vector<int> numbers(3);
    volatile std::size_t index = numbers.size();
    std::printf("%d\n", numbers[index]);
  }
}

}  // namespace host
