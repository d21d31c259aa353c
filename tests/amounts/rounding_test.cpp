// The rounding behind every amount, seen through the conversion at a rate of zero, which leaves the value as
// it is.
#include <cmath>
#include <limits>

#include "support/host.h"

namespace {

using namespace host;

double rounded(double value, BYTE decimals) {
  static const auto outil = create<_Outil>(L"Outil");
  double result = -1;
  EXPECT_EQ(S_OK, outil->DLL_GetAmountTTCByHT(0, value, decimals, &result));
  return result;
}

struct Rounding {
  double value;
  BYTE decimals;
  double expected;
};

void expect_roundings(std::initializer_list<Rounding> cases) {
  for (const Rounding& test : cases) {
    EXPECT_EQ(test.expected, rounded(test.value, test.decimals))
        << std::to_string(test.value) << " at " << int{test.decimals};
    EXPECT_EQ(-test.expected, rounded(-test.value, test.decimals))
        << std::to_string(-test.value) << " at " << int{test.decimals};
  }
}

TEST(Outil, Rounding_HalvesGoAwayFromZero) {
  expect_roundings({{0.5, 0, 1},
                    {1.5, 0, 2},
                    {2.5, 0, 3},
                    {0.125, 2, 0.13},
                    {0.375, 2, 0.38},
                    {0.625, 2, 0.63},
                    {0.25, 1, 0.3},
                    {1.0625, 3, 1.063},
                    {999.5, 0, 1000}});
}

// Each of these lies just below the half in binary form, or just above.
TEST(Outil, Rounding_DecimalHalvesAreHalvesWhateverTheirBinaryForm) {
  expect_roundings({{2.675, 2, 2.68},
                    {1.005, 2, 1.01},
                    {1.115, 2, 1.12},
                    {0.285, 2, 0.29},
                    {8.345, 2, 8.35},
                    {4.35, 1, 4.4},
                    {10.235, 2, 10.24},
                    {39.355, 2, 39.36},
                    {1234567.885, 2, 1234567.89},
                    {16384.135, 2, 16384.14},
                    {0.005, 2, 0.01},
                    {0.0005, 3, 0.001}});
}

TEST(Outil, Rounding_ResidueOfASumCountsAsTheDecimalItStandsFor) {
  EXPECT_EQ(0.3, rounded(0.1 + 0.2, 2));
  EXPECT_EQ(1.01, rounded(1.1 - 0.095, 2));   // 1.0050000000000001
  EXPECT_EQ(2.68, rounded(2.685 - 0.01, 2));  // 2.6749999999999998
}

TEST(Outil, Rounding_BelowTheHalfByOneOfFifteenDigitsGoesDown) {
  expect_roundings({{1.00499999999999, 2, 1},
                    {2.67499999999999, 2, 2.67},
                    {0.499999999999999, 0, 0},
                    {0.00499999999999999, 2, 0},
                    {99.4999999999999, 0, 99}});
}

TEST(Outil, Rounding_CarryRunsThroughTheNines) {
  expect_roundings(
      {{0.995, 2, 1}, {9.995, 2, 10}, {999.995, 2, 1000}, {0.9999, 0, 1}, {99999.999, 2, 100000}});
}

TEST(Outil, Rounding_KeepsAsManyDecimalsAsAsked) {
  expect_roundings({{12.3456789, 0, 12},
                    {12.3456789, 1, 12.3},
                    {12.3456789, 2, 12.35},
                    {12.3456789, 3, 12.346},
                    {12.3456789, 4, 12.3457},
                    {12.3456789, 6, 12.345679},
                    {12.3456789, 7, 12.3456789}});
}

TEST(Outil, Rounding_MoreDecimalsThanTheValueHasChangeNothing) {
  expect_roundings({{12.5, 3, 12.5},
                    {0.1, 255, 0.1},
                    {100, 255, 100},
                    {123456789012.34, 2, 123456789012.34},
                    {1e15, 2, 1e15},
                    {1e300, 2, 1e300},
                    {123456789012345, 0, 123456789012345}});
}

TEST(Outil, Rounding_MoreThanFifteenDigitsKeepWhatTheValueHolds) {
  expect_roundings({{12345678901234.56, 2, 12345678901234.56},
                    {1234567890123456, 0, 1234567890123456},
                    {12345678901234.567, 2, 12345678901234.57},
                    {1.0 / 3, 20, 1.0 / 3},
                    {0.1 + 0.2, 16, 0.3},
                    {0.1 + 0.2, 17, 0.1 + 0.2},
                    {std::numeric_limits<double>::max(), 0, std::numeric_limits<double>::max()}});
}

TEST(Outil, Rounding_SmallerThanTheLastDecimalIsZero) {
  expect_roundings({{0.0049, 2, 0}, {0.001, 2, 0}, {1e-10, 2, 0}, {1e-300, 4, 0}, {0.4, 0, 0}});
}

TEST(Outil, Rounding_ZeroHasNoSign) {
  EXPECT_FALSE(std::signbit(rounded(-0.001, 2)));
  EXPECT_FALSE(std::signbit(rounded(-0.0, 2)));
}

TEST(Outil, Rounding_RoundingTwiceChangesNothing) {
  for (int i = 1; i < 3000; ++i) {
    const double value = i * 1234.5678901 / 7;
    for (BYTE decimals = 0; decimals <= 6; ++decimals) {
      const double once = rounded(value, decimals);
      ASSERT_EQ(once, rounded(once, decimals)) << value << " at " << int{decimals};
    }
  }
}

TEST(Outil, Rounding_EveryHalfCentBelowAHundredGoesUp) {
  for (int cents = 0; cents < 10000; ++cents) {
    ASSERT_EQ((cents + 1) / 100.0, rounded((cents * 10 + 5) / 1000.0, 2)) << cents;
  }
}

}  // namespace
