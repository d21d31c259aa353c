// Sixteen apartments at once, and objects that outlive theirs.
#include <atomic>
#include <memory>

#include "life/thread.h"
#include "life/usage.h"

namespace {

using host::ComPtr;
using life::Thread;

constexpr int kApartments = 16;

class Apartments : public ::testing::Test {
 protected:
  /// Every apartment creates, uses and releases an object of each class, `rounds` times.
  void run(int rounds) {
    std::vector<std::unique_ptr<Thread>> threads;
    for (int i = 0; i < kApartments; ++i) {
      threads.push_back(std::make_unique<Thread>([this, rounds] { live(rounds); }));
    }
    threads.clear();
    EXPECT_EQ(0, failures_);
    EXPECT_EQ(kApartments * rounds * static_cast<int>(host::catalogue().size()), used_);
  }

  void live(int rounds) {
    if (FAILED(CoInitialize(nullptr))) ++failures_;
    for (int round = 0; round < rounds; ++round) {
      int failures = 0;
      const auto objects = life::create_all(failures);
      failures_ += failures;
      for (std::size_t i = 0; i < objects.size(); ++i) {
        const bool used = life::use(objects[i].get(), host::catalogue()[i]);
        ++(used ? used_ : failures_);
      }
    }
    CoUninitialize();
  }

  std::atomic<int> failures_{0}, used_{0};
};

TEST_F(Apartments, SixteenOfOneThreadEach_UseEveryClassAtOnce) { run(20); }

TEST_F(Apartments, SixteenThatLoadTheLibraryAtOnce_UseIt) {
  for (int i = 0; i < 5; ++i) {
    CoFreeUnusedLibrariesEx(0, 0);
    failures_ = used_ = 0;
    run(1);
  }
}

TEST_F(Apartments, AllReleased_TheLibraryMayGo) {
  run(1);
  const host::Library library;
  EXPECT_EQ(S_OK, library.can_unload());
}

/// One object for all: its public variables are read while others read them.
TEST_F(Apartments, SixteenReadOneObjectAtOnce) {
  int failures = 0;
  const auto objects = life::create_all(failures);
  std::vector<std::unique_ptr<Thread>> threads;
  for (int i = 0; i < kApartments; ++i) {
    threads.push_back(std::make_unique<Thread>([&] {
      if (FAILED(CoInitialize(nullptr))) ++failures_;
      for (int round = 0; round < 20; ++round) {
        for (std::size_t k = 0; k < objects.size(); ++k) {
          ++(life::use(objects[k].get(), host::catalogue()[k]) ? used_ : failures_);
        }
      }
      CoUninitialize();
    }));
  }
  threads.clear();
  EXPECT_EQ(0, failures_);
  EXPECT_EQ(kApartments * 20 * static_cast<int>(objects.size()), used_);
}

/// Objects of an apartment that is gone.
class ObjectsLeftBehind : public ::testing::Test {
 protected:
  /// Makes an object of each class in an apartment that ends at once.
  template <class Keep>
  void leave(Keep keep) {
    Thread([&] {
      EXPECT_EQ(S_OK, CoInitialize(nullptr));
      int failures = 0;
      keep(life::create_all(failures));
      EXPECT_EQ(0, failures);
      CoUninitialize();
    }).join();
  }
};

TEST_F(ObjectsLeftBehind, ReachedDirectly_WorkAndAreReleased) {
  const host::Library
      library;  // COM unloads with the last apartment; a host that keeps objects keeps this too
  std::vector<ComPtr<IDispatch>> objects;
  leave([&](std::vector<ComPtr<IDispatch>> made) { objects = std::move(made); });
  for (std::size_t i = 0; i < objects.size(); ++i) {
    EXPECT_TRUE(life::use(objects[i].get(), host::catalogue()[i])) << i;
  }
  EXPECT_EQ(S_FALSE, library.can_unload());
  objects.clear();
  EXPECT_EQ(S_OK, library.can_unload());
}

}  // namespace
