// TvaRepart.ReadRepartTVA: how a distribution text is read.
#include "amounts/vat_table.h"

namespace {

using namespace host;

using Shares = std::vector<std::pair<int, double>>;

/// Reads `text` under the document's code and compares the whole record: shares, rates, accounts, no amount.
void expect_reading(const wchar_t* text, const Shares& shares, short expected_code, short document_code = 1) {
  SCOPED_TRACE(utf8(text));
  VatTable table = VatTable::standard();
  const Reading reading = read_distribution(table, text, {.code = document_code});
  EXPECT_EQ(S_OK, reading.result);
  EXPECT_EQ(expected_code, reading.code);
  Record<Type_RepartTVA> expected = standard_rates();
  for (const auto& [code, percentage] : shares) set_line(*expected, code, percentage);
  expect_same(*expected, *reading.record);
}

TEST(TvaRepart, ReadRepartTVA_EmptyTextPutsAllUnderTheDocumentsCode) {
  expect_reading(L"", {{4, 100}}, 4, 4);
  expect_reading(L"", {{0, 100}}, 0, 0);
  expect_reading(L"", {{99, 100}}, 99, 99);
}

TEST(TvaRepart, ReadRepartTVA_BlankTextPutsAllUnderTheDocumentsCode) {
  expect_reading(L" ", {{4, 100}}, 4, 4);
  expect_reading(L"    ", {{4, 100}}, 4, 4);
}

TEST(TvaRepart, ReadRepartTVA_NullTextPutsAllUnderTheDocumentsCode) {
  VatTable table = VatTable::standard();
  Reading reading;
  reading.code = 4;
  ASSERT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")
                      ->ReadRepartTVA(table.argument(), &reading.code, nullptr, 0, missing().get(), 2,
                                      reading.record));
  EXPECT_EQ(4, reading.code);
  EXPECT_EQ(100, reading.record->Lignes[4].Pourcent);
}

TEST(TvaRepart, ReadRepartTVA_TabIsNoBlank) {
  VatTable table = VatTable::standard();
  EXPECT_TRUE(is_fault(read_distribution(table, L"\t").result, 13, L"TvaRepart"));
}

TEST(TvaRepart, ReadRepartTVA_OnePairGivesItsCode) {
  expect_reading(L"3@100.00@", {{3, 100}}, 3);
  expect_reading(L"0@100@", {{0, 100}}, 0);
  expect_reading(L"98@100@", {{98, 100}}, 98);
}

TEST(TvaRepart, ReadRepartTVA_TwoPairsGiveTheMultipleCode) {
  expect_reading(L"1@40@3@60@", {{1, 40}, {3, 60}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_PairsMayStandInAnyOrder) {
  expect_reading(L"3@60@1@40@", {{1, 40}, {3, 60}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_LastPairAbsorbsTheRemainder) {
  expect_reading(L"1@40@3@50@", {{1, 40}, {3, 60}}, 99);
  expect_reading(L"2@0@", {{2, 100}}, 2);
  expect_reading(L"5@0@", {{5, 100}}, 5);
  expect_reading(L"1@40@3@99@", {{1, 40}, {3, 60}}, 99);
  expect_reading(L"1@33.33@2@33.33@3@33.33@", {{1, 33.33}, {2, 33.33}, {3, 100 - (33.33 + 33.33)}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_OnlyTheLastPairAbsorbs) {
  expect_reading(L"3@50@1@40@", {{1, 50}, {3, 50}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_TooMuchMakesTheLastShareNegative) {
  expect_reading(L"1@70@2@60@3@10@", {{1, 70}, {2, 60}, {3, -30}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_LastPairMayBecomeZeroAndDoesNotCountThen) {
  expect_reading(L"1@100@3@50@", {{1, 100}, {3, 0}}, 1);
}

TEST(TvaRepart, ReadRepartTVA_ZeroSharesDoNotCountAsASecondCode) {
  expect_reading(L"1@0@3@100@", {{3, 100}}, 3);
  expect_reading(L"1@0@2@0@3@100@4@0@", {{3, 100}}, 3);
}

TEST(TvaRepart, ReadRepartTVA_NegativeSharesCountAsACode) {
  expect_reading(L"1@-20@3@120@", {{1, -20}, {3, 120}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_RepeatedCodeKeepsItsLastShareAndCountsTwiceInTheSum) {
  expect_reading(L"1@30@1@40@2@5@", {{1, 40}, {2, 30}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_RepeatedCodeAloneGivesTheMultipleCode) {
  expect_reading(L"1@30@1@70@", {{1, 70}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_SharesMayHaveAPointOrAComma) {
  expect_reading(L"1@33.25@3@66.75@", {{1, 33.25}, {3, 66.75}}, 99);
  expect_reading(L"1@33,25@3@66,75@", {{1, 33.25}, {3, 66.75}}, 99);
  expect_reading(L"1@33.25@3@66,75@", {{1, 33.25}, {3, 66.75}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_SharesMayHaveBlanksBetweenThousands) {
  const Shares shares{{1, 1234.5}, {3, 100 - 1234.5}};
  expect_reading(L"1@1 234,5@3@0@", shares, 99);
  expect_reading(L"1@1\u00A0234,5@3@0@", shares, 99);
  expect_reading(L"1@1\u202F234.5@3@0@", shares, 99);
}

TEST(TvaRepart, ReadRepartTVA_LastMarkMayBeLackingAndTheLastPairStillAbsorbs) {
  expect_reading(L"1@40@3@50", {{1, 40}, {3, 60}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_BlanksAroundACodeAreNoPartOfIt) {
  expect_reading(L" 1@40@ 3 @60@", {{1, 40}, {3, 60}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_FractionalCodeIsRoundedHalvesToEven) {
  expect_reading(L"2,5@40@3,5@60@", {{2, 40}, {4, 60}}, 99);
}

TEST(TvaRepart, ReadRepartTVA_MultipleCodeIsTheInstancesOwn) {
  const auto object = create<_TvaRepart>(L"TvaRepart");
  ASSERT_EQ(S_OK, object->put_PC_CodeTVAMultiple(50));
  VatTable table = VatTable::standard();
  Record<Type_RepartTVA> record;
  short code = 1;
  ASSERT_EQ(S_OK, object->ReadRepartTVA(table.argument(), &code, Text(L"1@40@3@60@"), 0, missing().get(), 2,
                                        record));
  EXPECT_EQ(50, code);
}

TEST(TvaRepart, ReadRepartTVA_FillsTheAmountsOfThePivot) {
  VatTable table = VatTable::standard();
  const Reading reading = read_distribution(table, L"1@50@3@50@", {.pivot = 100});
  ASSERT_EQ(S_OK, reading.result);
  Record<Type_RepartTVA> expected = standard_rates();
  set_line(*expected, 1, 50, 50, 10);
  set_line(*expected, 3, 50, 50, 2.75);
  expect_same(*expected, *reading.record);
}

TEST(TvaRepart, ReadRepartTVA_TariffKindAndDecimalsGoToTheAmounts) {
  VatTable table = VatTable::standard();
  const Reading reading = read_distribution(table, L"5@100@", {.pivot = 100, .kind = L"T", .decimals = 1});
  ASSERT_EQ(S_OK, reading.result);
  Record<Type_RepartTVA> expected = standard_rates();
  set_line(*expected, 5, 100, 100, 100 - 83.6);
  expect_same(*expected, *reading.record);
}

TEST(TvaRepart, ReadRepartTVA_CallersTextIsNotConsumed) {
  VatTable table = VatTable::standard();
  const Text text(L"1@40@3@60@");
  EXPECT_EQ(S_OK, read_distribution(table, text).result);
  EXPECT_EQ(L"1@40@3@60@", text.str());
}

TEST(TvaRepart, ReadRepartTVA_FormerContentOfTheResultIsNotRead) {
  VatTable table = VatTable::standard();
  Record<Type_RepartTVA> record;
  set_line(*record, 7, 50, 12, 3);
  short code = 1;
  ASSERT_EQ(S_OK,
            create<_TvaRepart>(L"TvaRepart")
                ->ReadRepartTVA(table.argument(), &code, Text(L"1@100@"), 0, missing().get(), 2, record));
  Record<Type_RepartTVA> expected = standard_rates();
  set_line(*expected, 1, 100);
  expect_same(*expected, *record);
}

}  // namespace
