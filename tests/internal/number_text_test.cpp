// The fast roads of number_text against the platform's own. The seed is printed; VELMOSAV_TEST_SEED repeats a
// run.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "automation/number_text.h"
#include "companion/companion.h"
#include "support/chance.h"
#include "support/host.h"

namespace {

using host::utf8;

std::wstring platform_text(double value) {
  velmosav::Bstr text;
  EXPECT_EQ(S_OK, VarBstrFromR8(value, LOCALE_USER_DEFAULT, 0, text.receive())) << value;
  return std::wstring(text.view());
}

std::wstring platform_fixed(double value, const wchar_t* pattern) {
  VARIANT number;
  number.vt = VT_R8;
  number.dblVal = value;
  std::wstring format(pattern);
  velmosav::Bstr text;
  EXPECT_EQ(S_OK, VarFormat(&number, format.data(), 0, 0, 0, text.receive())) << value;
  return std::wstring(text.view());
}

/// Platform-written numbers with an exponent keep a point on one of our platforms: they are not compared.
void expect_platform_text(double value) {
  const std::wstring expected = platform_text(value);
  if (expected.find(L'E') != std::wstring::npos) return;
  ASSERT_EQ(utf8(expected), utf8(velmosav::number_text(value).view())) << value;
}

TEST(NumberText, IsThatOfThePlatformForAmounts) {
  std::mt19937 chance(host::chosen_seed());
  std::uniform_int_distribution<long> cents(-99'999'999, 99'999'999);
  for (int i = 0; i < 20000; ++i) expect_platform_text(static_cast<double>(cents(chance)) / 100);
}

TEST(NumberText, IsThatOfThePlatformForNumbersOfAnySize) {
  std::mt19937 chance(host::chosen_seed());
  std::uniform_real_distribution<double> digits(-10, 10);
  std::uniform_int_distribution<int> exponent(-8, 18);
  for (int i = 0; i < 20000; ++i) expect_platform_text(digits(chance) * std::pow(10.0, exponent(chance)));
}

TEST(NumberText, IsThatOfThePlatformAtTheEdgesOfItsForms) {
  for (const double value :
       {0.0, 0.1, 0.0001, 0.00012345, 0.00009999, 999999999.0, 1000000000.0, 1000000000.5, 999999999999999.0,
        999999999999999.9, 1e15, 2.9999999999999996, 0.1 + 0.2, 1.0 / 3}) {
    expect_platform_text(value);
    expect_platform_text(-value);
  }
}

TEST(FixedNumberText, IsThatOfThePlatformForRoundedRates) {
  std::mt19937 chance(host::chosen_seed());
  std::uniform_real_distribution<double> rates(0, 1000);
  for (int i = 0; i < 5000; ++i) {
    const double rate = velmosav::companion::round_amount(rates(chance), 2);
    ASSERT_EQ(utf8(platform_fixed(rate, L"0.00")), utf8(velmosav::fixed_number_text(rate, 2).view())) << rate;
  }
  EXPECT_EQ(utf8(platform_fixed(0, L"0.00")), utf8(velmosav::fixed_number_text(0, 2).view()));
}

TEST(FixedNumberText, IsThatOfThePlatformForNumbersOfUpTo15Digits) {
  std::mt19937 chance(host::chosen_seed());
  std::uniform_real_distribution<double> numbers(1, 10);
  for (int exponent = -2; exponent < 13; ++exponent) {  // two decimals more
    for (const double sign : {1.0, -1.0}) {
      const double value =
          velmosav::companion::round_amount(sign * numbers(chance) * std::pow(10, exponent), 2);
      EXPECT_EQ(utf8(platform_fixed(value, L"0.00")), utf8(velmosav::fixed_number_text(value, 2).view()))
          << value;
    }
  }
}

// The platform may fall back on its form with an exponent there.
TEST(FixedNumberText, WritesLargerNumbersInDigits) {
  EXPECT_EQ(L"1000000000000000,00", velmosav::fixed_number_text(1e15, 2).view());
  EXPECT_EQ(L"-12500000000000000000000000,00", velmosav::fixed_number_text(-1.25e25, 2).view());
  EXPECT_EQ(L"123456789012346000", velmosav::fixed_number_text(123456789012345678.0, 0).view());
}

}  // namespace
