// Periodicite.GetLibPeriodicite: the French label of a rule, blanks included.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

std::wstring label(const RuleFields& fields) { return Recurrence().label(fields); }

TEST(Periodicite, GetLibPeriodicite_DailyWithAnInterval) {
  EXPECT_EQ(L"Tous les 3 jours", label({.kind = L"Q", .every = 3}));
  EXPECT_EQ(L"Tous les 2 jours", label({.kind = L"Q", .every = 2}));
  EXPECT_EQ(L"Tous les 32767 jours", label({.kind = L"Q", .every = 32767}));
}

TEST(Periodicite, GetLibPeriodicite_IntervalOfOneOrLessIsNotWritten) {
  for (const short every : std::initializer_list<short>{1, 0, -5}) {
    EXPECT_EQ(L"Tous les jours", label({.kind = L"Q", .every = every})) << every;
    EXPECT_EQ(L"Lundi, toutes les semaines", label({.kind = L"H", .every = every, .weekdays = L"L"}))
        << every;
    EXPECT_EQ(L"Chaque 1 Janvier, toutes les années",
              label({.kind = L"A", .every = every, .day = 1, .months = L"J"}))
        << every;
  }
}

TEST(Periodicite, GetLibPeriodicite_WeeklyIntervalStandsAfterTwoBlanks) {
  EXPECT_EQ(L"Mardi, toutes les  3 semaines", label({.kind = L"H", .every = 3, .weekdays = L"M"}));
  EXPECT_EQ(L"Lundi, Jeudi, toutes les  2 semaines", label({.kind = L"H", .every = 2, .weekdays = L"LJ"}));
}

TEST(Periodicite, GetLibPeriodicite_WeeklyWithoutDay) {
  EXPECT_EQ(L", toutes les semaines", label({.kind = L"H", .every = 1}));
}

TEST(Periodicite, GetLibPeriodicite_MonthlyOrdinalWithAnInterval) {
  EXPECT_EQ(L"Le Premier Lundi, tous les 2 mois",
            label({.kind = L"M", .every = 2, .ordinal = L"P", .weekdays = L"L"}));
  EXPECT_EQ(L"Le Dernier Vendredi, tous les mois",
            label({.kind = L"M", .every = 1, .ordinal = L"R", .weekdays = L"V"}));
}

TEST(Periodicite, GetLibPeriodicite_MonthlyIntervalHidesTheMonths) {
  EXPECT_EQ(L"Le 15, tous les mois", label({.kind = L"M", .every = 1, .day = 15, .months = L"JL"}));
}

TEST(Periodicite, GetLibPeriodicite_MonthlyOnSeveralListedMonths) {
  EXPECT_EQ(L"Le 15, les mois de Janvier, Juillet", label({.kind = L"M", .day = 15, .months = L"JL"}));
}

TEST(Periodicite, GetLibPeriodicite_MonthlyOnOneListedMonth) {
  EXPECT_EQ(L"Le 15 Mars", label({.kind = L"M", .day = 15, .months = L"M"}));
}

TEST(Periodicite, GetLibPeriodicite_MonthlyOrdinalOnListedMonths) {
  EXPECT_EQ(L"Le Deuxième Mardi Avril",
            label({.kind = L"M", .ordinal = L"D", .weekdays = L"M", .months = L"A"}));
  EXPECT_EQ(L"Le Troisième Mercredi, les mois de Mai, Juin",
            label({.kind = L"M", .ordinal = L"T", .weekdays = L"E", .months = L"IU"}));
}

TEST(Periodicite, GetLibPeriodicite_MonthlyWithoutMonthsHasNoTail) {
  EXPECT_EQ(L"Le 15", label({.kind = L"M", .day = 15}));
  EXPECT_EQ(L"Le 15", label({.kind = L"M", .day = 15, .months = L"  "}));
}

TEST(Periodicite, GetLibPeriodicite_OneListedMonthIsCountedWithItsBlanks) {
  EXPECT_EQ(L"Le 15, les mois de Mars", label({.kind = L"M", .day = 15, .months = L"M "}));
}

TEST(Periodicite, GetLibPeriodicite_NegativeMonthlyIntervalListsTheMonths) {
  EXPECT_EQ(L"Le 3 Octobre", label({.kind = L"M", .every = -2, .day = 3, .months = L"C"}));
}

TEST(Periodicite, GetLibPeriodicite_DayNumberBelowOneSelectsTheOrdinal) {
  EXPECT_EQ(L"Le Premier Lundi", label({.kind = L"M", .day = 0, .ordinal = L"P", .weekdays = L"L"}));
  EXPECT_EQ(L"Le Premier Lundi", label({.kind = L"M", .day = -4, .ordinal = L"P", .weekdays = L"L"}));
  EXPECT_EQ(L"Le 1", label({.kind = L"M", .day = 1, .ordinal = L"P", .weekdays = L"L"}));
}

TEST(Periodicite, GetLibPeriodicite_YearlyOnADayNumber) {
  EXPECT_EQ(L"Chaque 1 Janvier, toutes les années",
            label({.kind = L"A", .every = 1, .day = 1, .months = L"J"}));
  EXPECT_EQ(L"Chaque 14 Juillet, toutes les 4 années",
            label({.kind = L"A", .every = 4, .day = 14, .months = L"L"}));
}

TEST(Periodicite, GetLibPeriodicite_YearlyOnAnOrdinal) {
  EXPECT_EQ(L"Le Dernier Vendredi de Décembre, toutes les 2 années",
            label({.kind = L"A", .every = 2, .ordinal = L"R", .weekdays = L"V", .months = L"D"}));
  EXPECT_EQ(L"Le Quatrième Dimanche de Août, toutes les années",
            label({.kind = L"A", .every = 1, .ordinal = L"Q", .weekdays = L"D", .months = L"O"}));
}

TEST(Periodicite, GetLibPeriodicite_EveryOrdinalHasItsName) {
  EXPECT_EQ(L"Le Premier, Deuxième, Troisième, Quatrième, Dernier Samedi",
            label({.kind = L"M", .ordinal = L"PDTQR", .weekdays = L"S"}));
}

TEST(Periodicite, GetLibPeriodicite_EveryMonthHasItsName) {
  EXPECT_EQ(
      L"Le 1, les mois de Janvier, Février, Mars, Avril, Mai, Juin, Juillet, Août, Septembre, Octobre, "
      L"Novembre, Décembre",
      label({.kind = L"M", .day = 1, .months = L"JFMAIULOSCND"}));
}

TEST(Periodicite, GetLibPeriodicite_UnknownKindIsEmpty) {
  for (const wchar_t* kind : {L"", L"X", L"m", L"q", L"MM", L"M ", L" M"}) {
    EXPECT_EQ(L"", label({.kind = kind, .every = 1, .day = 1, .weekdays = L"L", .months = L"J"}))
        << utf8(kind);
  }
}

TEST(Periodicite, GetLibPeriodicite_KindLettersAreThoseOfTheInstance) {
  const Recurrence object;
  ASSERT_EQ(S_OK, object->put_c_sPeriod_Quotid(Text(L"1")));
  ASSERT_EQ(S_OK, object->put_c_sPeriod_Hebdo(Text(L"2")));
  ASSERT_EQ(S_OK, object->put_c_sPeriod_Mens(Text(L"3")));
  ASSERT_EQ(S_OK, object->put_c_sPeriod_Annuel(Text(L"4")));
  EXPECT_EQ(L"Tous les jours", object.label({.kind = L"1"}));
  EXPECT_EQ(L"Lundi, toutes les semaines", object.label({.kind = L"2", .weekdays = L"L"}));
  EXPECT_EQ(L"Le 2", object.label({.kind = L"3", .day = 2}));
  EXPECT_EQ(L"Chaque 2 Mai, toutes les années", object.label({.kind = L"4", .day = 2, .months = L"I"}));
  EXPECT_EQ(L"", object.label({.kind = L"Q"}));
}

TEST(Periodicite, GetLibPeriodicite_KindLettersOfAnotherInstanceDoNotCount) {
  const Recurrence other;
  ASSERT_EQ(S_OK, other->put_c_sPeriod_Quotid(Text(L"X")));
  EXPECT_EQ(L"", label({.kind = L"X"}));
  EXPECT_EQ(L"Tous les jours", label({.kind = L"Q"}));
}

TEST(Periodicite, GetLibPeriodicite_WeekdayNamesAreThoseOfTheInstance) {
  const Recurrence object;
  ASSERT_EQ(S_OK, object->put_c_sWeekDayfmt(Text(L"&Monday;&Thursday;#F")));
  EXPECT_EQ(L"Thursday, Monday, toutes les semaines", object.label({.kind = L"H", .weekdays = L"TMV"}));
}

TEST(Periodicite, GetLibPeriodicite_LeavesTheRuleAsItIs) {
  auto record = rule({.kind = L"A", .every = 2, .ordinal = L"r", .weekdays = L"v", .months = L"d"});
  set(record->Libelle, L"libre");
  record->JFeries = VARIANT_TRUE;
  const auto before = snapshot(*record);
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->GetLibPeriodicite(record, &result));
  EXPECT_EQ(result, std::wstring_view(L"Le Dernier Vendredi de Décembre, toutes les 2 années"));
  EXPECT_EQ(std::vector<std::string>(), differences(*before, *record));
}

TEST(Periodicite, GetLibPeriodicite_RuleWithNullTextsHasAnEmptyLabel) {
  Record<Type_Periodicite> record;
  Text result(L"not set");
  ASSERT_EQ(S_OK, Recurrence()->GetLibPeriodicite(record, &result));
  EXPECT_EQ(L"", result.str());
}

}  // namespace
