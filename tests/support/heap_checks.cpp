#include "support/heap_checks.h"

#include "automation/platform.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace host {
namespace {

bool heaps_are_whole() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  if (count == 0 || count > heaps.size()) return false;
  for (DWORD i = 0; i < count; ++i) {
    if (!HeapValidate(heaps[i], 0, nullptr)) return false;
  }
  return true;
}

/// Whether a byte changed at `place` is found, and no longer when it is put back.
bool is_found(volatile char* place) {
  if (!heaps_are_whole()) return false;
  const char former = *place;
  *place = static_cast<char>(former ^ 0x55);
  const bool found = !heaps_are_whole();
  *place = former;
  return found && heaps_are_whole();
}

class Validation : public ::testing::EmptyTestEventListener {
  void OnTestEnd(const ::testing::TestInfo& test) override {
    EXPECT_TRUE(heaps_are_whole()) << test.test_suite_name() << "." << test.name() << " damaged a heap";
  }
};

}  // namespace

void check_heaps() {
  for (const std::size_t size : {5, 37, 40, 200, 3000, 70000}) {
    auto* const block = static_cast<char*>(std::malloc(size));
    const bool overrun = is_found(block + size);
    // As a number, since the compiler refuses what is done here.
    volatile std::uintptr_t freed = reinterpret_cast<std::uintptr_t>(block) + size - 1;
    std::free(block);
    const bool use_after_free =
        size < 2 * sizeof(LIST_ENTRY) || is_found(reinterpret_cast<volatile char*>(freed));
    if (overrun && use_after_free) continue;
    std::printf("the heap's checks are not on: in a block of %zu bytes a byte written %s is not found\n",
                size, overrun ? "after it was freed" : "behind its end");
    std::exit(2);
  }
  ::testing::UnitTest::GetInstance()->listeners().Append(new Validation);
}

}  // namespace host
