// General.GetFmtSaisDureeUnit: the input format of a duration in a unit, and the cap of its value.
#include "support/arguments.h"

namespace {

using namespace host;

struct Answer {
  std::wstring format;
  std::wstring unit;
  short value;
};

Answer format_of(const wchar_t* unit, short value, _General* general = nullptr) {
  const auto own = create<_General>(L"General");
  Text unit_argument(unit);
  Text format(L"not set");
  EXPECT_EQ(S_OK,
            (general ? general : own.get())->GetFmtSaisDureeUnit(unit_argument.in_out(), &value, &format));
  return {format.str(), unit_argument.str(), value};
}

struct Unit {
  const wchar_t* code;
  short cap;
  const wchar_t* format;
};
constexpr Unit kUnits[] = {{L"J", 3642, L"N;4.0;>0;<3642;B"},
                           {L"S", 520, L"N;3.0;>0;<520;B"},
                           {L"M", 120, L"N;3.0;>0;<120;B"},
                           {L"A", 10, L"N;2.0;>0;<10;B"}};

TEST(General, GetFmtSaisDureeUnit_GivesTheFormatOfEachUnitAndKeepsTheUnit) {
  for (const Unit& unit : kUnits) {
    const Answer answer = format_of(unit.code, 1);
    EXPECT_EQ(Text(unit.format), answer.format);
    EXPECT_EQ(Text(unit.code), answer.unit);
  }
}

TEST(General, GetFmtSaisDureeUnit_CapsAGreaterValue) {
  for (const Unit& unit : kUnits) {
    EXPECT_EQ(unit.cap, format_of(unit.code, static_cast<short>(unit.cap + 1)).value) << utf8(unit.code);
    EXPECT_EQ(unit.cap, format_of(unit.code, 32767).value) << utf8(unit.code);
  }
}

TEST(General, GetFmtSaisDureeUnit_LeavesValuesUpToTheCapZeroAndNegatives) {
  for (const Unit& unit : kUnits) {
    for (const int value : {unit.cap + 0, unit.cap - 1, 1, 0, -1, -32768}) {
      EXPECT_EQ(value, format_of(unit.code, static_cast<short>(value)).value) << utf8(unit.code);
    }
  }
}

TEST(General, GetFmtSaisDureeUnit_UnknownUnitBecomesTheDay) {
  const Answer answer = format_of(L"X", 5000);
  EXPECT_EQ(L"N;4.0;>0;<3642;B", answer.format);
  EXPECT_EQ(L"J", answer.unit);
  EXPECT_EQ(3642, answer.value);
}

TEST(General, GetFmtSaisDureeUnit_UnknownUnitLeavesASmallValue) {
  const Answer answer = format_of(L"X", 500);
  EXPECT_EQ(L"J", answer.unit);
  EXPECT_EQ(500, answer.value);
}

TEST(General, GetFmtSaisDureeUnit_LowerCaseAndEmptyUnitsAreUnknown) {
  for (const wchar_t* unit : {L"j", L"s", L"m", L"a", L"", L"JJ", L" J"}) {
    const Answer answer = format_of(unit, 600);
    EXPECT_EQ(L"N;4.0;>0;<3642;B", answer.format) << utf8(unit);
    EXPECT_EQ(L"J", answer.unit) << utf8(unit);
    EXPECT_EQ(600, answer.value) << utf8(unit);
  }
}

TEST(General, GetFmtSaisDureeUnit_FollowsTheMembersOfTheInstance) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sUnitDur_Sem(Text(L"W")));
  ASSERT_EQ(S_OK, general->put_c_sUnitDur_Jour(Text(L"D")));
  EXPECT_EQ(L"N;3.0;>0;<520;B", format_of(L"W", 1, general.get()).format);
  const Answer former_week = format_of(L"S", 600, general.get());
  EXPECT_EQ(L"N;4.0;>0;<3642;B", former_week.format);
  EXPECT_EQ(L"D", former_week.unit);
}

TEST(General, GetFmtSaisDureeUnit_DayIsTheFirstMatch) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sUnitDur_Sem(Text(L"J")));
  EXPECT_EQ(L"N;4.0;>0;<3642;B", format_of(L"J", 1, general.get()).format);
}

TEST(General, GetFmtSaisDureeUnit_NullPointersAreEPointer) {
  const auto general = create<_General>(L"General");
  Text unit(L"J");
  Text format;
  short value = 1;
  EXPECT_EQ(E_POINTER, general->GetFmtSaisDureeUnit(unit.in_out(), &value, nullptr));
  EXPECT_EQ(E_POINTER, general->GetFmtSaisDureeUnit(unit.in_out(), nullptr, &format));
  EXPECT_EQ(E_POINTER, general->GetFmtSaisDureeUnit(nullptr, &value, &format));
}

TEST(General, GetFmtSaisDureeUnit_LateBoundChangesTheCallersVariables) {
  Text unit(L"X");
  short value = 5000;
  Variant result;
  ASSERT_EQ(S_OK, call(create_dispatch(L"General").get(), L"GetFmtSaisDureeUnit",
                       arguments(by_reference(unit), by_reference(value)), result.receive()));
  EXPECT_EQ(L"N;4.0;>0;<3642;B", velmosav::view(result.get().bstrVal));
  EXPECT_EQ(L"J", unit.str());
  EXPECT_EQ(3642, value);
}

TEST(General, GetFmtSaisDureeUnit_LateBoundChangesAScriptsVariables) {
  Variant unit = text_value(L"X");
  Variant value(5000L);
  Variant result;
  ASSERT_EQ(S_OK, call(create_dispatch(L"General").get(), L"GetFmtSaisDureeUnit",
                       arguments(by_reference(unit.get()), by_reference(value.get())), result.receive()));
  EXPECT_EQ(L"J", velmosav::view(unit.get().bstrVal));
  EXPECT_EQ(3642, velmosav::to_long(value.get()));
}

}  // namespace
