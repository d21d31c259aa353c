// TvaRepart.ReadRepartTVA: what it takes from the host's VAT table, and what it skips there.
#include <algorithm>

#include "amounts/vat_table.h"

namespace {

using namespace host;

FakeObject::Getter failing(HRESULT code) {
  return [code](const FakeObject::Arguments&) -> Variant {
    throw FakeObject::Error{code, L"Hote", L"Refus"};
  };
}

void expect_table_reading(VatTable& table, Record<Type_RepartTVA>& expected) {
  set_line(*expected, 1, 100);
  const Reading reading = read_distribution(table, L"1@100@");
  EXPECT_EQ(S_OK, reading.result);
  EXPECT_EQ(1, reading.code);
  expect_same(*expected, *reading.record);
}

TEST(TvaRepart, ReadRepartTVA_FillsEveryCodeOfTheTableUsedOrNot) {
  VatTable table = VatTable::standard();
  table.add(99, 7, L"445799", L"445899");
  auto expected = standard_rates();
  expected->Lignes[99].TauxTva = 7;
  set(expected->Lignes[99].Compte, L"445799");
  set(expected->Lignes[99].CompteEnc, L"445899");
  expect_table_reading(table, expected);
}

TEST(TvaRepart, ReadRepartTVA_NeverAsksTheTableForCodeZero) {
  VatTable table = VatTable::standard();
  std::vector<short> asked;
  table.table().on_get(L"EnrTva", [&](const FakeObject::Arguments& arguments) -> Variant {
    asked.push_back(velmosav::to_short(arguments.at(0)));
    throw FakeObject::Error{E_FAIL, L"Hote", L"Code de TVA inconnu"};
  });
  const Reading reading = read_distribution(table, L"0@100@");
  ASSERT_EQ(S_OK, reading.result);
  asked.erase(std::unique(asked.begin(), asked.end()), asked.end());
  std::vector<short> expected;
  for (short code = 1; code <= 99; ++code) expected.push_back(code);
  EXPECT_EQ(expected, asked);
  EXPECT_EQ(0, reading.record->Lignes[0].TauxTva);
}

TEST(TvaRepart, ReadRepartTVA_UnknownCodeLeavesItsSlotWithoutRateAndAccounts) {
  VatTable table = VatTable::standard();
  const Reading reading = read_distribution(table, L"42@100@", {.pivot = 100});
  ASSERT_EQ(S_OK, reading.result);
  auto expected = standard_rates();
  set_line(*expected, 42, 100, 100, 0);
  expect_same(*expected, *reading.record);
}

TEST(TvaRepart, ReadRepartTVA_FailingRateStillReadsTheAccounts) {
  VatTable table = VatTable::standard();
  table.entry(2).on_get(L"TauxTva", failing(E_FAIL));
  auto expected = standard_rates();
  expected->Lignes[2].TauxTva = 0;
  expect_table_reading(table, expected);
}

TEST(TvaRepart, ReadRepartTVA_FailingAccountStillReadsTheRest) {
  VatTable table = VatTable::standard();
  table.entry(2).on_get(L"Compte", failing(0x800A01B6));
  table.entry(3).on_get(L"CompteEnc", failing(DISP_E_MEMBERNOTFOUND));
  auto expected = standard_rates();
  set(expected->Lignes[2].Compte, L"");
  set(expected->Lignes[3].CompteEnc, L"");
  expect_table_reading(table, expected);
}

TEST(TvaRepart, ReadRepartTVA_NullAndUnreadableValuesAreSkipped) {
  VatTable table = VatTable::standard();
  table.entry(1).property(L"TauxTva", null_value());
  table.entry(2).property(L"TauxTva", text_value(L"vingt"));
  table.entry(3).property(L"Compte", null_value());
  table.entry(4).property(L"CompteEnc", object_value(&table.entry(1)));
  auto expected = standard_rates();
  expected->Lignes[1].TauxTva = 0;
  expected->Lignes[2].TauxTva = 0;
  set(expected->Lignes[3].Compte, L"");
  set(expected->Lignes[4].CompteEnc, L"");
  expect_table_reading(table, expected);
}

TEST(TvaRepart, ReadRepartTVA_ValuesOfOtherTypesAreConverted) {
  VatTable table = VatTable::standard();
  table.entry(1).property(L"TauxTva", Variant(20L));
  table.entry(2).property(L"TauxTva", text_value(L"8,5"));
  table.entry(3).property(L"Compte", Variant(445713L));
  table.entry(4).property(L"TauxTva", Variant());
  table.entry(4).property(L"CompteEnc", Variant());
  auto expected = standard_rates();
  expected->Lignes[2].TauxTva = 8.5;
  expected->Lignes[4].TauxTva = 0;
  set(expected->Lignes[4].CompteEnc, L"");
  expect_table_reading(table, expected);
}

TEST(TvaRepart, ReadRepartTVA_EntryThatIsNoObjectIsSkipped) {
  VatTable table = VatTable::standard();
  table.table().on_get(L"EnrTva", [](const FakeObject::Arguments&) { return text_value(L"20"); });
  Record<Type_RepartTVA> expected;
  set(expected->FormatTVA, L"{TVA}");
  set(expected->FormatTVANonMulti, L"{TVAM}");
  expect_table_reading(table, expected);
}

TEST(TvaRepart, ReadRepartTVA_FailingFormatLeavesTheOther) {
  for (const bool first : {true, false}) {
    VatTable table = VatTable::standard();
    table.table().on_get(first ? L"FormatTVA" : L"FormatTVANonMulti", failing(E_FAIL));
    auto expected = standard_rates();
    set(first ? expected->FormatTVA : expected->FormatTVANonMulti, L"");
    expect_table_reading(table, expected);
  }
}

TEST(TvaRepart, ReadRepartTVA_TableWithoutEntriesStillGivesItsFormats) {
  const auto bare = FakeObject::make();
  bare->property(L"FormatTVA", text_value(L"{TVA}"));
  bare->property(L"FormatTVANonMulti", text_value(L"{TVAM}"));
  IDispatch* argument = bare.get();
  short code = 1;
  Record<Type_RepartTVA> record;
  ASSERT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")
                      ->ReadRepartTVA(&argument, &code, Text(L"1@100@"), 0, missing().get(), 2, record));
  Record<Type_RepartTVA> expected;
  set_line(*expected, 1, 100);
  set(expected->FormatTVA, L"{TVA}");
  set(expected->FormatTVANonMulti, L"{TVAM}");
  expect_same(*expected, *record);
}

TEST(TvaRepart, ReadRepartTVA_NothingAsTableGivesNoRates) {
  IDispatch* nothing = nullptr;
  short code = 1;
  Record<Type_RepartTVA> record;
  ASSERT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")
                      ->ReadRepartTVA(&nothing, &code, Text(L"1@40@3@60@"), 10, missing().get(), 2, record));
  EXPECT_EQ(99, code);
  Record<Type_RepartTVA> expected;
  set_line(*expected, 1, 40, 4);
  set_line(*expected, 3, 60, 6);
  expect_same(*expected, *record);
}

TEST(TvaRepart, ReadRepartTVA_SkippedFailuresLeaveNoReferenceBehind) {
  VatTable table = VatTable::standard();
  const long before = table.entry(1).references();
  table.entry(1).on_get(L"Compte", failing(E_FAIL));
  EXPECT_EQ(S_OK, read_distribution(table, L"1@100@").result);
  EXPECT_EQ(before, table.entry(1).references());
  EXPECT_EQ(1, table.table().references());
}

TEST(TvaRepart, ReadRepartTVA_TableIsReadAfterTheParse) {
  VatTable table = VatTable::standard();
  EXPECT_TRUE(FAILED(read_distribution(table, L"x@100@").result));
  EXPECT_TRUE(table.table().log.empty());
}

}  // namespace
