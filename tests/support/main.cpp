#include "automation/platform.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/guarded_run.h"

int main(int argc, char** argv) {
  SetConsoleOutputCP(CP_UTF8);
  ::testing::InitGoogleTest(&argc, argv);
  if (FAILED(CoInitialize(nullptr))) return 2;
  if (std::getenv("SAV_GUARD")) host::guard_all_memory();
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
