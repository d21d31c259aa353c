// The enumerations: names and values in declared order, in the type library and in the C++ header.
#include "contract/published.h"
#include "support/type_library.h"

namespace contract {
namespace {

class EachEnumeration : public ::testing::TestWithParam<Enumeration> {};

TEST_P(EachEnumeration, Values_StandInTheirOrder) {
  const auto info = type_named(TKIND_ENUM, GetParam().name);
  ASSERT_TRUE(info);
  ASSERT_EQ(GetParam().values.size(), attributes_of(info)->cVars);
  for (UINT i = 0; i < GetParam().values.size(); ++i) {
    const Enumerator& expected = GetParam().values[i];
    const auto variable = variable_of(info, i);
    ASSERT_EQ(VAR_CONST, variable->varkind) << utf8(expected.name);
    EXPECT_EQ(expected.name, name_of(info, variable->memid));
    EXPECT_EQ(VT_I4, variable->lpvarValue->vt) << utf8(expected.name);
    EXPECT_EQ(expected.value, variable->lpvarValue->lVal) << utf8(expected.name);
  }
}

TEST_P(EachEnumeration, Values_InTheHeader_AreTheSame) {
  for (const Enumerator& expected : GetParam().values) {
    EXPECT_EQ(expected.value, expected.header_value) << utf8(expected.name);
  }
}

TEST_P(EachEnumeration, Width_IsThirtyTwoBits) {
  const auto info = type_named(TKIND_ENUM, GetParam().name);
  ASSERT_TRUE(info);
  EXPECT_EQ(4u, attributes_of(info)->cbSizeInstance);
  EXPECT_EQ(4u, GetParam().header_size);
}

INSTANTIATE_TEST_SUITE_P(, EachEnumeration, ::testing::ValuesIn(enumerations()), name_of_case<Enumeration>);

}  // namespace
}  // namespace contract
