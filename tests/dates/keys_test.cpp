// Periodicite.GetKeyDay, GetKeyMonth and GetNumMonth: one-letter keys of days and months.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

std::wstring day_key(short number) {
  Text result(L"not set");
  EXPECT_EQ(S_OK, Recurrence()->GetKeyDay(&number, &result));
  return result.str();
}

std::wstring month_key(short number) {
  Text result(L"not set");
  EXPECT_EQ(S_OK, Recurrence()->GetKeyMonth(&number, &result));
  return result.str();
}

std::wstring number_of(const wchar_t* key) {
  Text argument(key);
  Text result(L"not set");
  EXPECT_EQ(S_OK, Recurrence()->GetNumMonth(argument.in_out(), &result));
  return result.str();
}

TEST(Periodicite, GetKeyDay_CountsFromSunday) {
  std::wstring keys;
  for (short day = 1; day <= 7; ++day) keys += day_key(day) + L";";
  EXPECT_EQ(L"D;L;M;E;J;V;S;", keys);
}

TEST(Periodicite, GetKeyDay_OtherNumberIsEmpty) {
  for (const short number : std::initializer_list<short>{0, 8, -1, 32767, -32768})
    EXPECT_EQ(L"", day_key(number)) << number;
}

TEST(Periodicite, GetKeyMonth_GivesTheKeyOfEachMonth) {
  std::wstring keys;
  for (short month = 1; month <= 12; ++month) keys += month_key(month) + L";";
  EXPECT_EQ(L"J;F;M;A;I;U;L;O;S;C;N;D;", keys);
}

TEST(Periodicite, GetKeyMonth_OtherNumberIsEmpty) {
  for (const short number : std::initializer_list<short>{0, 13, -1, 32767, -32768})
    EXPECT_EQ(L"", month_key(number)) << number;
}

TEST(Periodicite, GetKeyDayAndGetKeyMonth_LeaveTheNumberAsItIs) {
  const Recurrence object;
  short number = 2;
  Text result;
  ASSERT_EQ(S_OK, object->GetKeyDay(&number, &result));
  ASSERT_EQ(S_OK, object->GetKeyMonth(&number, &result));
  EXPECT_EQ(2, number);
}

TEST(Periodicite, GetNumMonth_TwoDigitsOfEachKey) {
  constexpr std::wstring_view kKeys = L"JFMAIULOSCND";
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    const std::wstring key(1, kKeys[i]);
    EXPECT_EQ(two_digits(static_cast<int>(i) + 1), number_of(key.c_str())) << utf8(key);
  }
}

TEST(Periodicite, GetNumMonth_JIsJanuaryNeverJuneOrJuly) { EXPECT_EQ(L"01", number_of(L"J")); }

TEST(Periodicite, GetNumMonth_KeyMayBeInLowerCase) {
  EXPECT_EQ(L"06", number_of(L"u"));
  EXPECT_EQ(L"10", number_of(L"c"));
}

TEST(Periodicite, GetNumMonth_UnknownKeyIsEmpty) {
  for (const wchar_t* key : {L"", L"X", L"JF", L" J", L"J ", L"1", L"01", L"Janvier"}) {
    EXPECT_EQ(L"", number_of(key)) << utf8(key);
  }
}

TEST(Periodicite, GetNumMonth_LeavesTheKeyAsItIs) {
  Text key(L"o");
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->GetNumMonth(key.in_out(), &result));
  EXPECT_EQ(key, std::wstring_view(L"o"));
}

TEST(Periodicite, GetNumMonth_UndoesGetKeyMonth) {
  for (short month = 1; month <= 12; ++month) {
    EXPECT_EQ(two_digits(month), number_of(month_key(month).c_str()));
  }
}

TEST(Periodicite, Keys_NullPointersAreEPointer) {
  const Recurrence object;
  Text result;
  EXPECT_EQ(E_POINTER, object->GetKeyDay(nullptr, &result));
  EXPECT_EQ(E_POINTER, object->GetKeyMonth(nullptr, &result));
  EXPECT_EQ(E_POINTER, object->GetNumMonth(nullptr, &result));
}

}  // namespace
