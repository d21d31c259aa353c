// Periodicite.GetFormatUniteDuree: the interval of date arithmetic that a duration unit stands for.
#include "support/arguments.h"

namespace {

using namespace host;

std::wstring interval_of(const wchar_t* unit) {
  Text argument(unit);
  Text result(L"not set");
  EXPECT_EQ(S_OK, create<_Periodicite>(L"Periodicite")->GetFormatUniteDuree(argument.in_out(), &result));
  EXPECT_EQ(argument, std::wstring_view(unit));
  return result.str();
}

TEST(Periodicite, GetFormatUniteDuree_GivesTheIntervalOfEachUnit) {
  EXPECT_EQ(L"d", interval_of(L"J"));
  EXPECT_EQ(L"ww", interval_of(L"S"));
  EXPECT_EQ(L"m", interval_of(L"M"));
  EXPECT_EQ(L"yyyy", interval_of(L"A"));
}

TEST(Periodicite, GetFormatUniteDuree_UnknownUnitIsTheDay) {
  for (const wchar_t* unit : {L"X", L"", L"Q", L"ww", L"yyyy", L"AA", L"M ", L" M"}) {
    EXPECT_EQ(L"d", interval_of(unit)) << utf8(unit);
  }
}

TEST(Periodicite, GetFormatUniteDuree_ComparisonIsCaseSensitive) {
  for (const wchar_t* unit : {L"s", L"m", L"a"}) EXPECT_EQ(L"d", interval_of(unit)) << utf8(unit);
}

TEST(Periodicite, GetFormatUniteDuree_HostsOwnGeneralDoesNotCount) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sUnitDur_Sem(Text(L"W")));
  EXPECT_EQ(L"d", interval_of(L"W"));
  EXPECT_EQ(L"ww", interval_of(L"S"));
}

TEST(Periodicite, GetFormatUniteDuree_KindLettersOfTheInstanceDoNotCount) {
  const auto object = create<_Periodicite>(L"Periodicite");
  ASSERT_EQ(S_OK, object->put_c_sPeriod_Mens(Text(L"S")));
  Text unit(L"S");
  Text result;
  ASSERT_EQ(S_OK, object->GetFormatUniteDuree(unit.in_out(), &result));
  EXPECT_EQ(L"ww", result.str());
}

TEST(Periodicite, GetFormatUniteDuree_NullUnitTextIsUnknown) {
  BSTR unit = nullptr;
  Text result;
  ASSERT_EQ(S_OK, create<_Periodicite>(L"Periodicite")->GetFormatUniteDuree(&unit, &result));
  EXPECT_EQ(L"d", result.str());
  EXPECT_EQ(nullptr, unit);
}

TEST(Periodicite, GetFormatUniteDuree_NullPointersAreEPointer) {
  const auto object = create<_Periodicite>(L"Periodicite");
  Text unit(L"J");
  Text result;
  EXPECT_EQ(E_POINTER, object->GetFormatUniteDuree(nullptr, &result));
  EXPECT_EQ(E_POINTER, object->GetFormatUniteDuree(unit.in_out(), nullptr));
}

TEST(Periodicite, GetFormatUniteDuree_LateBoundAnswersTheSame) {
  const auto object = create_dispatch(L"Periodicite");
  Variant result;
  ASSERT_EQ(S_OK, call(object.get(), L"GetFormatUniteDuree", arguments(text_value(L"A")), result.receive()));
  EXPECT_EQ(L"yyyy", velmosav::view(result.get().bstrVal));
  Variant variable = text_value(L"S");
  ASSERT_EQ(S_OK, call(object.get(), L"GetFormatUniteDuree", arguments(by_reference(variable.get())),
                       result.receive()));
  EXPECT_EQ(L"ww", velmosav::view(result.get().bstrVal));
  EXPECT_EQ(L"S", velmosav::view(variable.get().bstrVal));
}

}  // namespace
