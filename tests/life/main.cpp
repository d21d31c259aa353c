// The tests; "--host NAME" is one of the hosts they start, "--loads N" a long run.
#include "automation/platform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "life/host_run.h"

int main(int argc, char** argv) {
  SetConsoleOutputCP(CP_UTF8);
  if (argc == 3 && std::strcmp(argv[1], "--host") == 0) return life::host_main(argv[2]);
  ::testing::InitGoogleTest(&argc, argv);
  if (argc == 3 && std::strcmp(argv[1], "--loads") == 0) life::run_long(std::atoi(argv[2]));
  if (FAILED(CoInitialize(nullptr))) return 2;
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
