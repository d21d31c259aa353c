// Failures of TvaRepart: what is raised, and what they leave behind.
#include <limits>

#include "amounts/vat_table.h"

namespace {

using namespace host;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

/// ReadRepartTVA fails with the fault, gives no partial record and leaves the document's code.
void expect_read_fault(int number, const wchar_t* text, const ReadOptions& options = {.code = 3}) {
  SCOPED_TRACE(utf8(text));
  VatTable table = VatTable::standard();
  Reading reading = read_distribution(table, text, options);
  EXPECT_TRUE(is_fault(reading.result, number, L"TvaRepart"));
  EXPECT_EQ(options.code, reading.code);
  Record<Type_RepartTVA> empty;
  expect_same(*empty, *reading.record);
}

HRESULT spread(Record<Type_RepartTVA>& record, double pivot, const wchar_t* kind, short decimals) {
  VatTable table = VatTable::standard();
  double total = -1;
  return create<_TvaRepart>(L"TvaRepart")
      ->GetAmountByRepartTVA(table.argument(), record, pivot, text_value(kind).get(), decimals, &total);
}

TEST(TvaRepart, ReadRepartTVA_CodeThatIsNoNumberIsFault13) {
  for (const wchar_t* text : {L"x@100@", L"1x@100@", L"@100@", L"1@40@y@60@", L"@"})
    expect_read_fault(13, text);
}

TEST(TvaRepart, ReadRepartTVA_ShareThatIsNoNumberIsFault13) {
  for (const wchar_t* text : {L"1@x@", L"1@40@3@6O@", L"1@1.2.3@", L"1@12%@"}) expect_read_fault(13, text);
}

TEST(TvaRepart, ReadRepartTVA_CodeOutsideAByteIsFault6) {
  for (const wchar_t* text : {L"-1@100@", L"256@100@", L"32767@100@", L"32768@100@", L"99999999999@100@"}) {
    expect_read_fault(6, text);
  }
}

TEST(TvaRepart, ReadRepartTVA_CodeFrom100To255IsFault9) {
  for (const wchar_t* text : {L"100@100@", L"255@100@", L"1@40@100@60@"}) expect_read_fault(9, text);
}

TEST(TvaRepart, ReadRepartTVA_DocumentsCodeIsCheckedLikeAnyOther) {
  expect_read_fault(6, L"", {.code = -1});
  expect_read_fault(9, L"", {.code = 100});
  expect_read_fault(6, L" ", {.code = 300});
}

TEST(TvaRepart, ReadRepartTVA_DocumentsCodeDoesNotMatterWhereATextIsGiven) {
  VatTable table = VatTable::standard();
  const Reading reading = read_distribution(table, L"2@100@", {.code = -1});
  EXPECT_EQ(S_OK, reading.result);
  EXPECT_EQ(2, reading.code);
}

TEST(TvaRepart, ReadRepartTVA_ShareTooLargeForADoubleIsFault6) { expect_read_fault(6, L"1@1e400@2@0@"); }

TEST(TvaRepart, ReadRepartTVA_FaultsOfTheAmountsReachTheCaller) {
  expect_read_fault(6, L"1@100@", {.code = 3, .pivot = kInfinity});
  expect_read_fault(6, L"1@100@", {.code = 3, .pivot = kNotANumber});
  expect_read_fault(6, L"1@100@", {.code = 3, .pivot = 100, .decimals = -1});
  expect_read_fault(6, L"1@100@", {.code = 3, .pivot = 100, .decimals = 256});
  expect_read_fault(6, L"1@100@", {.code = 3, .pivot = 0, .decimals = 256});
}

TEST(TvaRepart, ReadRepartTVA_DivisionByARateOfMinus100ReachesTheCaller) {
  VatTable table = VatTable::standard();
  table.entry(1).property(L"TauxTva", Variant(-100.0));
  const Reading reading = read_distribution(table, L"1@100@", {.code = 3, .pivot = 50, .kind = L"T"});
  EXPECT_TRUE(is_fault(reading.result, 11, L"TvaRepart"));
  EXPECT_EQ(3, reading.code);
  Record<Type_RepartTVA> empty;
  expect_same(*empty, *reading.record);
}

TEST(TvaRepart, ReadRepartTVA_NullPointersAreEPointer) {
  VatTable table = VatTable::standard();
  const auto object = create<_TvaRepart>(L"TvaRepart");
  const Text text(L"1@100@");
  short code = 1;
  Record<Type_RepartTVA> record;
  EXPECT_EQ(E_POINTER, object->ReadRepartTVA(table.argument(), &code, text, 0, missing().get(), 2, nullptr));
  EXPECT_EQ(E_POINTER, object->ReadRepartTVA(table.argument(), nullptr, text, 0, missing().get(), 2, record));
  EXPECT_EQ(E_POINTER, object->ReadRepartTVA(nullptr, &code, text, 0, missing().get(), 2, record));
}

TEST(TvaRepart, GetAmountByRepartTVA_NullPointersAreEPointer) {
  VatTable table = VatTable::standard();
  const auto object = create<_TvaRepart>(L"TvaRepart");
  Record<Type_RepartTVA> record;
  double total = 0;
  EXPECT_EQ(E_POINTER,
            object->GetAmountByRepartTVA(table.argument(), nullptr, 1, missing().get(), 2, &total));
  EXPECT_EQ(E_POINTER,
            object->GetAmountByRepartTVA(table.argument(), record, 1, missing().get(), 2, nullptr));
  EXPECT_EQ(E_POINTER, object->GetAmountByRepartTVA(nullptr, record, 1, missing().get(), 2, &total));
}

TEST(TvaRepart, GetAmountByRepartTVA_PivotThatIsNotFiniteIsFault6) {
  for (const double pivot : {kInfinity, -kInfinity, kNotANumber}) {
    Record<Type_RepartTVA> record;
    set_line(*record, 1, 100);
    EXPECT_TRUE(is_fault(spread(record, pivot, L"H", 2), 6, L"TvaRepart")) << pivot;
  }
}

TEST(TvaRepart, GetAmountByRepartTVA_ShareThatIsNotFiniteIsFault6) {
  for (const double share : {kInfinity, kNotANumber, kLargest}) {
    Record<Type_RepartTVA> record;
    set_line(*record, 1, share);
    EXPECT_TRUE(is_fault(spread(record, 1000, L"H", 2), 6, L"TvaRepart")) << share;
  }
}

TEST(TvaRepart, GetAmountByRepartTVA_DecimalsOutsideAByteAreFault6AfterTheSpreading) {
  // Rounded to tens, the difference on the last code; the VAT is never reached.
  auto record = standard_rates();
  set_line(*record, 1, 40, 1, 2);
  set_line(*record, 3, 60, 3, 4);
  EXPECT_TRUE(is_fault(spread(record, 123, L"H", -1), 6, L"TvaRepart"));
  auto expected = standard_rates();
  set_line(*expected, 1, 40, 50, 2);
  set_line(*expected, 3, 60, 73, 4);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_255DecimalsAreTheMost) {
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 100);
  EXPECT_EQ(S_OK, spread(record, 12.5, L"H", 255));
  EXPECT_TRUE(is_fault(spread(record, 12.5, L"H", 256), 6, L"TvaRepart"));
}

TEST(TvaRepart, GetAmountByRepartTVA_FaultLeavesWhatTheStepsBeforeItDid) {
  auto record = standard_rates();
  record->Lignes[3].TauxTva = -100;
  set_line(*record, 1, 40, 0, 7);
  set_line(*record, 3, 60, 0, 7);
  set_line(*record, 4, 0, 0, 7);
  EXPECT_TRUE(is_fault(spread(record, 100, L"T", 2), 11, L"TvaRepart"));
  auto expected = standard_rates();
  expected->Lignes[3].TauxTva = -100;
  set_line(*expected, 1, 40, 40, 40 - 33.33);
  set_line(*expected, 3, 60, 60, 7);
  set_line(*expected, 4, 0, 0, 7);
  expect_same(*expected, *record);
}

}  // namespace
