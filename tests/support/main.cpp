#include "automation/platform.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  SetConsoleOutputCP(CP_UTF8);
  ::testing::InitGoogleTest(&argc, argv);
  if (FAILED(CoInitialize(nullptr))) return 2;
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
