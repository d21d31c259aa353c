#include "automation/platform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "support/crashes.h"
#include "support/guarded_run.h"
#include "support/heap_checks.h"

int main(int argc, char** argv) {
  SetConsoleOutputCP(CP_UTF8);
  ::testing::InitGoogleTest(&argc, argv);
  host::report_crashes();
  if (argc == 3 && std::strcmp(argv[1], "--commit-fault") == 0) {
    host::commit_fault(argv[2]);
    return 0;
  }
  if (FAILED(CoInitialize(nullptr))) return 2;
  if (std::getenv("SAV_GUARD")) host::guard_all_memory();
  if (std::getenv("SAV_HEAP")) host::check_heaps();
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
