// TvaRepart.GetAmountByRepartTVA: spreading a pivot over the codes and converting it to the other base.
#include "amounts/vat_table.h"
#include "support/arguments.h"

namespace {

using namespace host;

/// The call with the host's standard table; the kind is left out when null.
double spread(Record<Type_RepartTVA>& record, double pivot, const wchar_t* kind = nullptr,
              short decimals = 2) {
  VatTable table = VatTable::standard();
  const Variant argument = kind ? text_value(kind) : missing();
  double total = -1;
  EXPECT_EQ(S_OK,
            create<_TvaRepart>(L"TvaRepart")
                ->GetAmountByRepartTVA(table.argument(), record, pivot, argument.get(), decimals, &total));
  return total;
}

double spread_with_kind(const VARIANT& kind) {
  VatTable table = VatTable::standard();
  Record<Type_RepartTVA> record = standard_rates();
  set_line(*record, 1, 100);
  double total = -1;
  EXPECT_EQ(
      S_OK,
      create<_TvaRepart>(L"TvaRepart")->GetAmountByRepartTVA(table.argument(), record, 120, kind, 2, &total));
  return total;
}

constexpr double kAsBeforeTax = 144;
constexpr double kAsTaxIncluded = 100;

TEST(TvaRepart, GetAmountByRepartTVA_BeforeTaxPivotIsSplitAndTaxed) {
  auto record = standard_rates();
  set_line(*record, 1, 50);
  set_line(*record, 3, 50);
  EXPECT_EQ(112.75, spread(record, 100));
  auto expected = standard_rates();
  set_line(*expected, 1, 50, 50, 10);
  set_line(*expected, 3, 50, 50, 2.75);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_TaxIncludedPivotIsSplitAndStripped) {
  auto record = standard_rates();
  set_line(*record, 1, 40);
  set_line(*record, 5, 60);
  EXPECT_EQ(33.33 + 50.17, spread(record, 100, L"T"));
  auto expected = standard_rates();
  set_line(*expected, 1, 40, 40, 40 - 33.33);
  set_line(*expected, 5, 60, 60, 60 - 50.17);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_HighestUsedCodeTakesTheRoundingDifference) {
  auto record = standard_rates();
  set_line(*record, 1, 33.33);
  set_line(*record, 2, 33.33);
  set_line(*record, 3, 33.34);
  spread(record, 10);
  const double rest = 3.33 + (10 - (3.33 + 3.33 + 3.33));
  EXPECT_NEAR(3.34, rest, 1e-12);
  auto expected = standard_rates();
  set_line(*expected, 1, 33.33, 3.33, 4.0 - 3.33);
  set_line(*expected, 2, 33.33, 3.33, 3.66 - 3.33);
  set_line(*expected, 3, 33.34, rest, 3.52 - rest);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_DifferenceIsTakenOffWhereTheBasesExceedThePivot) {
  Record<Type_RepartTVA> record;
  set_line(*record, 2, 50);
  set_line(*record, 7, 50);
  EXPECT_EQ(0.05, spread(record, 0.05));
  Record<Type_RepartTVA> expected;
  set_line(*expected, 2, 50, 0.03);  // 0.025 rounds up twice
  const double rest = 0.03 + (0.05 - (0.03 + 0.03));
  set_line(*expected, 7, 50, rest, 0.02 - rest);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_DifferenceIsNotRounded) {
  Record<Type_RepartTVA> record;
  set_line(*record, 4, 100);
  EXPECT_EQ(12.35, spread(record, 12.3456));
  Record<Type_RepartTVA> expected;
  const double base = 12.35 + (12.3456 - 12.35);
  set_line(*expected, 4, 100, base, 12.35 - base);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_NegativeShareIsAUsedCode) {
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 120);
  set_line(*record, 9, -10);
  spread(record, 100);
  EXPECT_EQ(120, record->Lignes[1].MontantBase);
  EXPECT_EQ(-20, record->Lignes[9].MontantBase);  // -10, and the 10 by which 110 falls short of 100
}

TEST(TvaRepart, GetAmountByRepartTVA_WithoutAnyShareCodeZeroTakesAll) {
  auto record = standard_rates();
  record->Lignes[0].TauxTva = 20;
  EXPECT_EQ(120, spread(record, 100));
  auto expected = standard_rates();
  expected->Lignes[0].TauxTva = 20;
  set_line(*expected, 0, 0, 100, 20);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_CodesZeroAndNinetyNineTakePart) {
  Record<Type_RepartTVA> record;
  record->Lignes[0].TauxTva = 10;
  record->Lignes[99].TauxTva = 20;
  set_line(*record, 0, 25);
  set_line(*record, 99, 75);
  EXPECT_EQ(27.5 + 90, spread(record, 100));
  Record<Type_RepartTVA> expected;
  expected->Lignes[0].TauxTva = 10;
  expected->Lignes[99].TauxTva = 20;
  set_line(*expected, 0, 25, 25, 2.5);
  set_line(*expected, 99, 75, 75, 15);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_FormerAmountsOfUnusedCodesAreCleared) {
  auto record = standard_rates();
  set_line(*record, 1, 100, 7, 8);
  set_line(*record, 2, 0, 50, 5);
  set_line(*record, 99, 0, 50, 5);
  EXPECT_EQ(120, spread(record, 100));
  auto expected = standard_rates();
  set_line(*expected, 1, 100, 100, 20);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_PivotOfZeroGivesZeroAmounts) {
  auto record = standard_rates();
  set_line(*record, 1, 40, 7, 8);
  set_line(*record, 3, 60, 9, 1);
  EXPECT_EQ(0, spread(record, 0));
  auto expected = standard_rates();
  set_line(*expected, 1, 40);
  set_line(*expected, 3, 60);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_NegativePivotMirrorsThePositiveOne) {
  auto record = standard_rates();
  set_line(*record, 1, 50);
  set_line(*record, 3, 50);
  EXPECT_EQ(-112.75, spread(record, -100));
  auto expected = standard_rates();
  set_line(*expected, 1, 50, -50, -10);
  set_line(*expected, 3, 50, -50, -2.75);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_DecimalsApplyToBasesAndConversions) {
  auto record = standard_rates();
  set_line(*record, 1, 30);
  set_line(*record, 3, 70);
  EXPECT_EQ(5 + 11, spread(record, 14, nullptr, 0));
  auto expected = standard_rates();
  set_line(*expected, 1, 30, 4, 1);   // 4.2; 4.8
  set_line(*expected, 3, 70, 10, 1);  // 9.8; 10.55
  expect_same(*expected, *record);
}

// A share of two thirds whose last digit tells the order: multiplication before the division.
TEST(TvaRepart, GetAmountByRepartTVA_MultipliesBeforeItDivides) {
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 66.6666666666667);
  set_line(*record, 2, 33.3333333333333);
  spread(record, 4050.92, nullptr, 11);
  EXPECT_EQ(2700.61333333334, record->Lignes[1].MontantBase);
}

TEST(TvaRepart, GetAmountByRepartTVA_TariffKindLeftOutIsBeforeTax) {
  EXPECT_EQ(kAsBeforeTax, spread_with_kind(missing().get()));
  EXPECT_EQ(kAsBeforeTax, spread_with_kind(text_value(L"H").get()));
}

TEST(TvaRepart, GetAmountByRepartTVA_AnyOtherTariffKindIsTaxIncluded) {
  for (const wchar_t* kind : {L"T", L"D", L"", L"h", L" H", L"HT"}) {
    EXPECT_EQ(kAsTaxIncluded, spread_with_kind(text_value(kind).get())) << '"' << utf8(kind) << '"';
  }
}

TEST(TvaRepart, GetAmountByRepartTVA_EmptyTariffKindIsNotAMissingOne) {
  EXPECT_EQ(kAsTaxIncluded, spread_with_kind(Variant().get()));
}

TEST(TvaRepart, GetAmountByRepartTVA_TariffKindMayBeAReference) {
  Text kind(L"T");
  EXPECT_EQ(kAsTaxIncluded, spread_with_kind(by_reference(kind).get()));

  Variant variable = text_value(L"T");
  EXPECT_EQ(kAsTaxIncluded, spread_with_kind(by_reference(variable).get()));
}

TEST(TvaRepart, GetAmountByRepartTVA_HostsOwnArticleConstantsDoNotCount) {
  const auto article = create<_Article>(L"Article");
  ASSERT_EQ(S_OK, article->put_PC_TARIF_HT(Text(L"T")));
  EXPECT_EQ(kAsTaxIncluded, spread_with_kind(text_value(L"T").get()));
}

TEST(TvaRepart, GetAmountByRepartTVA_NeverAsksTheTable) {
  VatTable table = VatTable::standard();
  auto record = standard_rates();
  set_line(*record, 1, 100);
  double total = -1;
  ASSERT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")
                      ->GetAmountByRepartTVA(table.argument(), record, 100, missing().get(), 2, &total));
  EXPECT_TRUE(table.table().log.empty());
  IDispatch* nothing = nullptr;
  EXPECT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")
                      ->GetAmountByRepartTVA(&nothing, record, 100, missing().get(), 2, &total));
}

}  // namespace
