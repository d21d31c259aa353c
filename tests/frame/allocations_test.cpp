// The counting of allocations itself: a count that sees nothing would prove nothing.
#include "support/allocations.h"

namespace {

using host::Allocations;

TEST(AllocationCount, Text_IsCountedUntilItIsFreed) {
  const Allocations allocations;
  const BSTR text = SysAllocString(L"compté");
  EXPECT_EQ(1u, allocations.outstanding());
  SysFreeString(text);
  EXPECT_EQ(0u, allocations.outstanding());
}

TEST(AllocationCount, Array_IsCountedUntilItIsFreed) {
  const Allocations allocations;
  SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 3);
  EXPECT_LT(0u, allocations.outstanding());
  SafeArrayDestroy(array);
  EXPECT_EQ(0u, allocations.outstanding());
}

}  // namespace
