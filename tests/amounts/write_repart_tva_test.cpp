// TvaRepart.WriteRepartTVA and GetStrRepartByCodeTVA: a distribution as text.
#include <limits>

#include "amounts/vat_table.h"

namespace {

using namespace host;

struct Writing {
  std::wstring text;
  short code;
};

Writing write(Record<Type_RepartTVA>& record, _TvaRepart* object = nullptr) {
  const auto own = create<_TvaRepart>(L"TvaRepart");
  Text text;
  short code = 1234;
  EXPECT_EQ(S_OK, (object ? object : own.get())->WriteRepartTVA(record, &code, &text));
  return {text.str(), code};
}

std::wstring single_code_text(const wchar_t* code) {
  Text text;
  EXPECT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")->GetStrRepartByCodeTVA(Text(code), &text));
  return text.str();
}

TEST(TvaRepart, GetStrRepartByCodeTVA_OfSevenIsAllUnderSeven) {
  EXPECT_EQ(L"7@100.00@", single_code_text(L"7"));
  EXPECT_EQ(L"3@100.00@", single_code_text(L"3"));
}

TEST(TvaRepart, GetStrRepartByCodeTVA_OfNothingHasNoCode) {
  EXPECT_EQ(L"@100.00@", single_code_text(L""));
  Text text;
  EXPECT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")->GetStrRepartByCodeTVA(nullptr, &text));
  EXPECT_EQ(L"@100.00@", text.str());
}

TEST(TvaRepart, GetStrRepartByCodeTVA_DoesNotCheckTheCode) {
  EXPECT_EQ(L"abc@100.00@", single_code_text(L"abc"));
  EXPECT_EQ(L" 1@2@@100.00@", single_code_text(L" 1@2@"));
}

TEST(TvaRepart, WriteRepartTVA_EmptyRecordGivesAnEmptyTextAndNoCode) {
  Record<Type_RepartTVA> record;
  const Writing writing = write(record);
  EXPECT_EQ(L"", writing.text);
  EXPECT_EQ(-1, writing.code);
}

TEST(TvaRepart, WriteRepartTVA_OnePositiveSlotGivesItsCode) {
  for (const short code : std::initializer_list<short>{0, 1, 42, 98, 99}) {
    Record<Type_RepartTVA> record;
    set_line(*record, code, 100);
    const Writing writing = write(record);
    EXPECT_EQ(std::to_wstring(code) + L"@100@", writing.text);
    EXPECT_EQ(code, writing.code);
  }
}

TEST(TvaRepart, WriteRepartTVA_SeveralSlotsGiveTheMultipleCodeInOrderOfCode) {
  Record<Type_RepartTVA> record;
  set_line(*record, 3, 60);
  set_line(*record, 1, 30);
  set_line(*record, 0, 10);
  const Writing writing = write(record);
  EXPECT_EQ(L"0@10@1@30@3@60@", writing.text);
  EXPECT_EQ(99, writing.code);
}

TEST(TvaRepart, WriteRepartTVA_ZeroNegativeAndNotANumberAreSkipped) {
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 0);
  set_line(*record, 2, -40);
  set_line(*record, 3, std::numeric_limits<double>::quiet_NaN());
  set_line(*record, 4, 1e-9);
  const Writing writing = write(record);
  EXPECT_EQ(4, writing.code);
  EXPECT_EQ(0u, writing.text.find(L"4@"));
}

TEST(TvaRepart, WriteRepartTVA_AmountsWithoutPercentageAreNotWritten) {
  Record<Type_RepartTVA> record = standard_rates();
  set_line(*record, 2, 0, 50, 10);
  EXPECT_EQ(L"", write(record).text);
}

TEST(TvaRepart, WriteRepartTVA_PercentageHasTheLocalesFormAndFifteenDigits) {
  const std::pair<double, const wchar_t*> cases[] = {
      {33.33, L"1@33,33@"},
      {100.0 / 3, L"1@33,3333333333333@"},
      {0.5, L"1@0,5@"},
      {66.66666666666667, L"1@66,6666666666667@"},
      {1234567.5, L"1@1234567,5@"},
  };
  for (const auto& [percentage, expected] : cases) {
    Record<Type_RepartTVA> record;
    set_line(*record, 1, percentage);
    EXPECT_EQ(Text(expected), write(record).text);
  }
}

TEST(TvaRepart, WriteRepartTVA_SmallPercentageInExponentFormHasTheLocalesSeparatorToo) {
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 0.000012345);
  EXPECT_EQ(L"1@1,2345E-05@", write(record).text);
}

TEST(TvaRepart, WriteRepartTVA_MultipleCodeIsTheInstancesOwn) {
  const auto object = create<_TvaRepart>(L"TvaRepart");
  ASSERT_EQ(S_OK, object->put_PC_CodeTVAMultiple(50));
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 40);
  set_line(*record, 3, 60);
  EXPECT_EQ(50, write(record, object.get()).code);
  EXPECT_EQ(99, write(record).code);
}

TEST(TvaRepart, WriteRepartTVA_LeavesTheRecordAlone) {
  Record<Type_RepartTVA> record = standard_rates();
  set_line(*record, 1, 40, 4, 0.8);
  set_line(*record, 3, 60, 6, 0.33);
  const auto before = snapshot(*record);
  write(record);
  expect_same(*before, *record);
}

TEST(TvaRepart, WriteRepartTVA_CodeMayBeLeftOut) {
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 100);
  Text text;
  EXPECT_EQ(S_OK, create<_TvaRepart>(L"TvaRepart")->WriteRepartTVA(record, nullptr, &text));
  EXPECT_EQ(L"1@100@", text.str());
}

TEST(TvaRepart, WriteRepartTVA_NullRecordOrResultIsEPointer) {
  const auto object = create<_TvaRepart>(L"TvaRepart");
  Record<Type_RepartTVA> record;
  short code = 0;
  Text text;
  EXPECT_EQ(E_POINTER, object->WriteRepartTVA(nullptr, &code, &text));
  EXPECT_EQ(E_POINTER, object->WriteRepartTVA(record, &code, nullptr));
  EXPECT_EQ(E_POINTER, object->GetStrRepartByCodeTVA(Text(L"1"), nullptr));
}

/// The user's decimal separator for the time of a test.
class DecimalSeparator {
 public:
  explicit DecimalSeparator(const wchar_t* separator) {
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, former_, static_cast<int>(std::size(former_)));
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator);
  }
  ~DecimalSeparator() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, former_); }
  DecimalSeparator(const DecimalSeparator&) = delete;
  DecimalSeparator& operator=(const DecimalSeparator&) = delete;

 private:
  wchar_t former_[8] = L"";
};

void expect_round_trip(const wchar_t* separator) {
  const DecimalSeparator guard(separator);
  Record<Type_RepartTVA> record = standard_rates();
  set_line(*record, 1, 33.25);
  set_line(*record, 2, 33.3333333333333);
  set_line(*record, 5, 33.4166666666667);
  const Writing writing = write(record);
  EXPECT_EQ(L"1@33" + std::wstring(separator) + L"25@2@33" + separator + L"3333333333333@5@33" + separator +
                L"4166666666667@",
            writing.text);

  VatTable table = VatTable::standard();
  const Reading reading = read_distribution(table, writing.text);
  EXPECT_EQ(S_OK, reading.result);
  EXPECT_EQ(writing.code, reading.code);
  expect_same(*record, *reading.record);
}

TEST(TvaRepart, WriteThenReadRepartTVA_RoundTripsWithADecimalComma) { expect_round_trip(L","); }

TEST(TvaRepart, WriteThenReadRepartTVA_RoundTripsWithADecimalPoint) { expect_round_trip(L"."); }

}  // namespace
