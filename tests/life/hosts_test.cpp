// Hosts that never release what they hold: the process ends all the same, without a crash and without a hang.
#include <gtest/gtest.h>

#include "life/host_run.h"

namespace {

class HostThatNeverReleases : public ::testing::TestWithParam<const char*> {};

TEST_P(HostThatNeverReleases, ComesToItsEnd) { EXPECT_EQ(DWORD{life::kDone}, life::run_host(GetParam())); }

INSTANTIATE_TEST_SUITE_P(, HostThatNeverReleases,
                         ::testing::Values("only ends", "uninitializes", "uninitializes and starts again",
                                           "unloads", "locks", "ends amid calls",
                                           "has sixteen threads in the shared apartment"),
                         [](const auto& instance) {
                           std::string name = instance.param;
                           for (char& letter : name) letter = letter == ' ' ? '_' : letter;
                           return name;
                         });

TEST(HostThatFails, IsNotTakenForOneThatCameToItsEnd) {
  EXPECT_NE(DWORD{life::kDone}, life::run_host("unknown"));
}

}  // namespace
