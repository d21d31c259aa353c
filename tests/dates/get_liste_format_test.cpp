// Periodicite.GetListeFormat: names of the items of a list text that a text of keys selects.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

TEST(Periodicite, GetListeFormat_NamesStandInTheOrderOfTheKeys) {
  const Recurrence object;
  EXPECT_EQ(L"Jeudi, Lundi", object.weekday_names(L"JL"));
  EXPECT_EQ(L"Lundi, Jeudi", object.weekday_names(L"LJ"));
}

TEST(Periodicite, GetListeFormat_KeyNotInTheListIsSkipped) {
  EXPECT_EQ(L"Jeudi, Lundi", Recurrence().weekday_names(L"XJ ?ZL1"));
  EXPECT_EQ(L"", Recurrence().weekday_names(L"XZ"));
}

TEST(Periodicite, GetListeFormat_EachKeySelectsTheItemWithThatMarkedLetter) {
  EXPECT_EQ(L"Lundi, Mardi, Mercredi, Jeudi, Vendredi, Samedi, Dimanche",
            Recurrence().weekday_names(L"LMEJVSD"));
}

TEST(Periodicite, GetListeFormat_KeysMayBeInLowerCase) {
  EXPECT_EQ(L"Mercredi, Dimanche", Recurrence().weekday_names(L"ed"));
}

TEST(Periodicite, GetListeFormat_MarkedLetterMayBeInLowerCase) {
  EXPECT_EQ(L"un, deux", Recurrence().names(L"UD", L"&un;&deux;#F"));
}

TEST(Periodicite, GetListeFormat_AccentedKeyMatchesInEitherCase) {
  EXPECT_EQ(L"été, été", Recurrence().names(L"éÉ", L"&été;#F"));
}

TEST(Periodicite, GetListeFormat_KeyWrittenTwiceGivesTheNameTwice) {
  EXPECT_EQ(L"Lundi, Lundi", Recurrence().weekday_names(L"LL"));
}

TEST(Periodicite, GetListeFormat_FirstItemOfAKeyWins) {
  EXPECT_EQ(L"Un", Recurrence().names(L"U", L"&Un;&Ultime;#F"));
}

TEST(Periodicite, GetListeFormat_ItemWithoutMarkHasItsFirstLetterAsKey) {
  EXPECT_EQ(L"Beta, Alpha", Recurrence().names(L"BA", L"Alpha;Beta;#F"));
}

TEST(Periodicite, GetListeFormat_ItemsAreTrimmed) {
  EXPECT_EQ(L"Beta, Alpha", Recurrence().names(L"BA", L"  &Alpha ;  &Beta  ; #F"));
}

TEST(Periodicite, GetListeFormat_EndMarkerIsNeverAnItem) {
  EXPECT_EQ(L"", Recurrence().names(L"#F", L"&Alpha;#F"));
  EXPECT_EQ(L"Beta", Recurrence().names(L"#B", L"&Alpha;#F;&Beta;#F"));
}

TEST(Periodicite, GetListeFormat_TextAfterTheLastSemicolonIsNoItem) {
  EXPECT_EQ(L"Alpha", Recurrence().names(L"AB", L"&Alpha;&Beta"));
}

TEST(Periodicite, GetListeFormat_EmptyListGivesNothing) { EXPECT_EQ(L"", Recurrence().names(L"LJ", L"")); }

TEST(Periodicite, GetListeFormat_NoKeyGivesNothing) { EXPECT_EQ(L"", Recurrence().weekday_names(L"")); }

TEST(Periodicite, GetListeFormat_WithoutReplacementTheMarkStays) {
  const Recurrence object;
  Text keys(L"EJ");
  VARIANT_BOOL replace = VARIANT_FALSE;
  Text result;
  ASSERT_EQ(S_OK, object->GetListeFormat(keys.in_out(), Text(L"M&ercredi;&Jeudi;#F"), &replace, &result));
  EXPECT_EQ(result, std::wstring_view(L"M&ercredi, &Jeudi"));
}

TEST(Periodicite, GetListeFormat_AnItemWithoutKeyShiftsNoName) {
  const Recurrence object;
  EXPECT_EQ(L"A, B", object.names(L"AB", L"&A;;&B;#F"));
  EXPECT_EQ(L"B", object.names(L"B", L"  ;&;&B;#F"));
  EXPECT_EQ(L"A, C", object.names(L"AC", L"&A;B&;&C;#F"));
}

TEST(Periodicite, GetListeFormat_WithReplacementTheMarkGoes) {
  const Recurrence object;
  Text keys(L"EJ");
  VARIANT_BOOL replace = VARIANT_TRUE;
  Text result;
  ASSERT_EQ(S_OK, object->GetListeFormat(keys.in_out(), Text(L"M&ercredi;&Jeudi;#F"), &replace, &result));
  EXPECT_EQ(result, std::wstring_view(L"Mercredi, Jeudi"));
}

TEST(Periodicite, GetListeFormat_LeavesItsArgumentsAsTheyAre) {
  const Recurrence object;
  Text keys(L"jl");
  VARIANT_BOOL replace = VARIANT_FALSE;
  Text result;
  ASSERT_EQ(S_OK, object->GetListeFormat(keys.in_out(), Text(L"&Lundi;&Jeudi;#F"), &replace, &result));
  EXPECT_EQ(keys, std::wstring_view(L"jl"));
  EXPECT_EQ(VARIANT_FALSE, replace);
}

TEST(Periodicite, GetListeFormat_NullTextsAreEmpty) {
  const Recurrence object;
  BSTR no_keys = nullptr;
  Text result(L"not set");
  ASSERT_EQ(S_OK, object->GetListeFormat(&no_keys, Text(L"&Lundi;#F"), nullptr, &result));
  EXPECT_EQ(L"", result.str());
  Text keys(L"L");
  ASSERT_EQ(S_OK, object->GetListeFormat(keys.in_out(), nullptr, nullptr, &result));
  EXPECT_EQ(L"", result.str());
}

TEST(Periodicite, GetListeFormat_KindsOfTheInstanceAreAListToo) {
  const Recurrence object;
  Text list;
  ASSERT_EQ(S_OK, object->get_G_FmtTypePeriodicite(&list));
  EXPECT_EQ(L"Quotidienne, Hebdomadaire, Mensuelle, Annuelle", object.names(L"QHMA", list.str().c_str()));
}

}  // namespace
