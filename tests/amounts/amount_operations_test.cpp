// Amounts before tax, tax included, VAT and discounts, as Outil computes them.
#include "support/arguments.h"

namespace {

using namespace host;

struct Conversion {
  double rate;
  double amount;
  BYTE decimals;
  double expected;
};

double ttc(double rate, double ht, BYTE decimals = 2) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountTTCByHT(rate, ht, decimals, &result));
  return result;
}

double ht(double rate, double amount, BYTE decimals = 2) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountHTByTTC(rate, amount, decimals, &result));
  return result;
}

double discounted(double amount, double rate, BYTE decimals = 2) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountDiscounted(amount, rate, decimals, &result));
  return result;
}

double vat(double rate, double amount, const wchar_t* kind, BYTE decimals = 2) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountTVA(rate, amount, Text(kind), decimals, &result));
  return result;
}

double late_bound(const wchar_t* name, std::vector<Variant> list) {
  Variant result;
  EXPECT_EQ(S_OK, call(create_dispatch(L"Outil").get(), name, std::move(list), result.receive()));
  EXPECT_EQ(VT_R8, result.get().vt);
  return result.get().dblVal;
}

TEST(Outil, DLL_GetAmountTTCByHT_AddsTheRate) {
  const Conversion cases[] = {
      {20, 100, 2, 120},    {5.5, 100, 2, 105.5}, {19.6, 83.61, 2, 100}, {20, -100, 2, -120},
      {20, 0, 2, 0},        {-100, 80, 2, 0},     {-50, 80, 2, 40},      {2.1, 0.24, 2, 0.25},
      {20, 0.004, 2, 0},    {20, 99.99, 1, 120},  {33.333, 3, 3, 4},     {100, 0.01, 2, 0.02},
      {5.5, 1.1, 3, 1.161},
  };
  for (const Conversion& test : cases) {
    EXPECT_EQ(test.expected, ttc(test.rate, test.amount, test.decimals))
        << test.rate << " % of " << test.amount;
  }
}

TEST(Outil, DLL_GetAmountHTByTTC_TakesTheRateOff) {
  const Conversion cases[] = {
      {20, 120, 2, 100},   {19.6, 100, 2, 83.61}, {19.6, 100, 4, 83.6120}, {5.5, 105.5, 2, 100},
      {20, -120, 2, -100}, {20, 0, 2, 0},         {-50, 40, 2, 80},        {-200, 10, 2, -10},
      {20, 0.005, 2, 0},   {20, 0.006, 2, 0.01},  {2.1, 100, 2, 97.94},
  };
  for (const Conversion& test : cases) {
    EXPECT_EQ(test.expected, ht(test.rate, test.amount, test.decimals))
        << test.rate << " % in " << test.amount;
  }
}

TEST(Outil, DLL_GetAmountDiscounted_GrossesUpInsteadOfTakingOff) { EXPECT_EQ(125, discounted(100, 20)); }

TEST(Outil, DLL_GetAmountDiscounted_IsTheAmountWhoseDiscountLeavesTheGivenOne) {
  const Conversion cases[] = {
      {20, 80, 2, 100},  {50, 100, 2, 200},     {0, 12.345, 2, 12.35}, {33, 100, 2, 149.25},
      {-25, 100, 2, 80}, {150, 100, 2, -200},   {20, -100, 2, -125},   {20, 0, 2, 0},
      {7, 100, 0, 108},  {7, 100, 4, 107.5269},
  };
  for (const Conversion& test : cases) {
    EXPECT_EQ(test.expected, discounted(test.amount, test.rate, test.decimals))
        << test.amount << " at " << test.rate << " %";
  }
}

TEST(Outil, DLL_GetAmount_NumDigitDec0RoundsToWholeUnits) {
  EXPECT_EQ(121, ttc(20, 100.6, 0));  // 120.72
  EXPECT_EQ(84, ht(19.6, 100, 0));    // 83.61
  EXPECT_EQ(143, discounted(100, 30, 0));
  EXPECT_EQ(16, vat(19.6, 100, L"T", 0));
}

TEST(Outil, DLL_GetAmount_RateOfZeroGivesTheRoundedAmount) {
  EXPECT_EQ(12.35, ttc(0, 12.345));
  EXPECT_EQ(12.35, ht(0, 12.345));
  EXPECT_EQ(12.35, discounted(12.345, 0));
}

// Inputs whose last digit tells the stated order of the operations from shorter ways to write them.
TEST(Outil, DLL_GetAmountTTCByHT_MultipliesByOnePlusTheRate) {
  EXPECT_EQ(752.027202560318, ttc(12.3456789, 669.3868513, 12));  // amount + amount * rate / 100: ...319
  EXPECT_EQ(252.708780089267, ttc(12.3456789, 224.9385847, 12));  // amount * (100 + rate) / 100: ...266
}

TEST(Outil, DLL_GetAmountHTByTTC_DividesByOnePlusTheRate) {
  EXPECT_EQ(9159.55925563174, ht(2.1, 9351.91, 11));  // amount * 100 / (100 + rate): ...173
}

TEST(Outil, DLL_GetAmountDiscounted_DividesByOneMinusTheRate) {
  EXPECT_EQ(5880.10214504597, discounted(5756.62, 2.1, 11));  // amount * 100 / (100 - rate): ...596
}

TEST(Outil, DLL_GetAmountTVA_BeforeTaxKindGivesTheVatOnTop) {
  EXPECT_EQ(20, vat(20, 100, L"H"));
  EXPECT_EQ(2.75, vat(5.5, 50, L"H"));
  EXPECT_EQ(-20, vat(20, -100, L"H"));
}

TEST(Outil, DLL_GetAmountTVA_TaxIncludedKindGivesTheVatInside) {
  EXPECT_EQ(20, vat(20, 120, L"T"));
  EXPECT_EQ(16.39, vat(19.6, 100, L"T"));
}

TEST(Outil, DLL_GetAmountTVA_LowerCaseKindIsAccepted) {
  EXPECT_EQ(20, vat(20, 100, L"h"));
  EXPECT_EQ(20, vat(20, 120, L"t"));
}

TEST(Outil, DLL_GetAmountTVA_AnyOtherKindGivesZero) {
  for (const wchar_t* kind : {L"D", L"d", L"", L"HT", L" H", L"H ", L"TTC", L"X"}) {
    EXPECT_EQ(0, vat(20, 100, kind)) << '"' << utf8(kind) << '"';
  }
}

TEST(Outil, DLL_GetAmountTVA_NullKindIsAnEmptyOne) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountTVA(20, 100, nullptr, 2, &result));
  EXPECT_EQ(0, result);
}

TEST(Outil, DLL_GetAmountTVA_IsTheDifferenceToTheRoundedCounterpart) {
  EXPECT_EQ(0, vat(20, 0.004, L"H", 2));  // 0.0048 is 0; 0 - 0.004 rounds to 0
  EXPECT_EQ(0.01,
            vat(20, 0.005, L"H", 2));      // 0.006 is 0.01; the difference 0.005 rounds up (amount x rate: 0)
  EXPECT_EQ(21, vat(20, 101.4, L"H", 0));  // 122 - 101.4 = 20.6 (amount x rate: 20)
  EXPECT_EQ(1, vat(20, 0.5, L"T", 0));     // 0.5 - 0 (share of the rate: 0)
}

TEST(Outil, DLL_GetAmountTVA_BeforeTaxPlusVatIsTaxIncluded) {
  for (const double rate : {20.0, 10.0, 5.5, 2.1, 19.6}) {
    for (int cents = 1; cents < 400; cents += 7) {
      const double amount = cents / 100.0;
      EXPECT_DOUBLE_EQ(ttc(rate, amount), amount + vat(rate, amount, L"H")) << rate << " % on " << amount;
      EXPECT_DOUBLE_EQ(amount, ht(rate, amount) + vat(rate, amount, L"T")) << rate << " % in " << amount;
    }
  }
}

TEST(Outil, DLL_GetAmountTVA_HostsOwnArticleConstantsDoNotCount) {
  const auto article = create<_Article>(L"Article");
  ASSERT_EQ(S_OK, article->put_PC_TARIF_HT(Text(L"X")));
  EXPECT_EQ(0, vat(20, 100, L"X"));
  EXPECT_EQ(20, vat(20, 100, L"H"));
}

TEST(Outil, DLL_GetAmount_LateBoundCallsAnswerTheSame) {
  EXPECT_EQ(83.612,
            late_bound(L"DLL_GetAmountHTByTTC", arguments(Variant(19.6), Variant(100.0), Variant(3L))));
  EXPECT_EQ(105.5, late_bound(L"DLL_GetAmountTTCByHT", arguments(Variant(5.5), Variant(100.0), Variant(1L))));
  EXPECT_EQ(108,
            late_bound(L"DLL_GetAmountDiscounted", arguments(Variant(100.0), Variant(7.0), Variant(0L))));
  EXPECT_EQ(16.4, late_bound(L"DLL_GetAmountTVA",
                             arguments(Variant(19.6), Variant(100L), text_value(L"t"), Variant(1L))));
}

TEST(Outil, DLL_GetAmount_NumDigitDecLeftOutMeansTwo) {
  EXPECT_EQ(83.61, late_bound(L"DLL_GetAmountHTByTTC", arguments(Variant(19.6), Variant(100.0))));
  EXPECT_EQ(12.35, late_bound(L"DLL_GetAmountTTCByHT", arguments(Variant(0.0), Variant(12.345))));
  EXPECT_EQ(107.53, late_bound(L"DLL_GetAmountDiscounted", arguments(Variant(100.0), Variant(7.0))));
  EXPECT_EQ(16.39,
            late_bound(L"DLL_GetAmountTVA", arguments(Variant(19.6), Variant(100.0), text_value(L"T"))));
}

}  // namespace
