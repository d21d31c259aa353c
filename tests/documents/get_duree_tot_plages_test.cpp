// Bon.GetDureeTotPlages: the total time of a technician's slots in a unit.
#include "support/arguments.h"
#include "support/records.h"

namespace {

using host::Text;

struct Slot {
  const wchar_t* date;
  const wchar_t* time;
  const wchar_t* end_date;
  const wchar_t* end_time;
};

class GetDureeTotPlages : public ::testing::Test {
 protected:
  void set_slots(const std::vector<Slot>& slots, long lower = 0) {
    host::dimension<Type_BarTime>(technician_->TabPlage, static_cast<unsigned long>(slots.size()), lower);
    for (unsigned long i = 0; i < slots.size(); ++i) {
      auto& place = host::element<Type_BarTime>(technician_->TabPlage, i);
      host::set(place.DateDeb, slots[i].date);
      host::set(place.HeureDebut, slots[i].time);
      host::set(place.DateFin, slots[i].end_date);
      host::set(place.HeureFin, slots[i].end_time);
    }
  }

  double total(const wchar_t* unit) {
    double result = 77;
    EXPECT_EQ(S_OK, orders_->GetDureeTotPlages(Text(unit), technician_, &result)) << host::utf8(unit);
    return result;
  }
  HRESULT run(const wchar_t* unit) {
    double result = 0;
    return orders_->GetDureeTotPlages(Text(unit), technician_, &result);
  }

  host::ComPtr<_Bon> orders_ = host::create<_Bon>(L"Bon");
  host::Record<Type_LigneRessource> technician_;
};

constexpr Slot kTwoAndAHalfHours{L"01/03/2025", L"08:00", L"01/03/2025", L"10:30"};
constexpr Slot kNoDate{L"lundi", L"matin", L"lundi", L"soir"};

TEST_F(GetDureeTotPlages, GivesHoursAndParts) {
  set_slots({kTwoAndAHalfHours});
  EXPECT_EQ(2.5, total(L"h"));
}

TEST_F(GetDureeTotPlages, DividesByTheSecondsOfTheUnit) {
  set_slots({{L"01/03/2025", L"18:00", L"03/03/2025", L"06:00"}});  // 36 hours
  EXPECT_EQ(129600, total(L"s"));
  EXPECT_EQ(2160, total(L"n"));
  EXPECT_EQ(36, total(L"h"));
  EXPECT_EQ(1.5, total(L"j"));
  EXPECT_EQ(129600.0 / 604800, total(L"w"));
  EXPECT_EQ(129600.0 / 2592000, total(L"m"));
  EXPECT_EQ(129600.0 / 31557600, total(L"y"));
}

TEST_F(GetDureeTotPlages, CountsAMonthAs30DaysAndAYearAs365AndAQuarterDays) {
  set_slots({{L"01/01/2025", L"00:00", L"31/01/2025", L"00:00"}});
  EXPECT_EQ(1, total(L"m"));
  set_slots({{L"01/01/2025", L"00:00", L"01/01/2029", L"00:00"}});
  EXPECT_EQ(4, total(L"y"));
}

TEST_F(GetDureeTotPlages, IsZeroForAnotherUnit) {
  set_slots({kTwoAndAHalfHours});
  for (const wchar_t* unit : {L"H", L"J", L"S", L"", L"d", L" h", L"h ", L"hh", L"heure"}) {
    EXPECT_EQ(0, total(unit)) << host::utf8(unit);
  }
}

TEST_F(GetDureeTotPlages, LooksAtNoSlotForAnotherUnit) {
  set_slots({kNoDate});
  EXPECT_EQ(0, total(L"H"));
}

TEST_F(GetDureeTotPlages, IsZeroWithoutSlots) {
  EXPECT_EQ(0, total(L"h"));
  set_slots({});
  EXPECT_EQ(0, total(L"h"));
}

TEST_F(GetDureeTotPlages, AddsTheSlots) {
  set_slots({kTwoAndAHalfHours,
             {L"28/02/2024", L"22:00", L"01/03/2024", L"01:15"},
             {L"31/12/2024", L"23:30", L"01/01/2025", L"00:00"}});
  EXPECT_EQ(2.5 + 27.25 + 0.5, total(L"h"));
}

TEST_F(GetDureeTotPlages, AddsQuotientsWithoutRoundingThem) {
  const Slot ten_minutes{L"01/03/2025", L"08:00", L"01/03/2025", L"08:10"};
  set_slots(std::vector<Slot>(10, ten_minutes));
  double expected = 0;
  for (int i = 0; i < 10; ++i) expected += 600.0 / 3600;
  EXPECT_EQ(expected, total(L"h"));
}

TEST_F(GetDureeTotPlages, TakesASlotThatEndsBeforeItStartsOff) {
  set_slots({kTwoAndAHalfHours, {L"01/03/2025", L"12:00", L"01/03/2025", L"11:00"}});
  EXPECT_EQ(1.5, total(L"h"));
  set_slots({{L"02/03/2025", L"08:00", L"01/03/2025", L"08:00"}});
  EXPECT_EQ(-1, total(L"j"));
}

TEST_F(GetDureeTotPlages, ReadsTimesToTheMinute) {
  set_slots({{L"01/03/2025", L"08:00:59", L"01/03/2025", L"08:01:01"}});
  EXPECT_EQ(60, total(L"s"));
  set_slots({{L"01/03/2025", L"08:00:01", L"01/03/2025", L"08:00:59"}});
  EXPECT_EQ(0, total(L"s"));
}

TEST_F(GetDureeTotPlages, ReadsTwoDigitYears) {
  set_slots({{L"01/03/25", L"08:00", L"01/03/2025", L"09:00"}});
  EXPECT_EQ(1, total(L"h"));
}

TEST_F(GetDureeTotPlages, TakesADateWithoutTimeAsMidnight) {
  set_slots({{L"01/03/2025", L"", L"01/03/2025", L"06:00"}});
  EXPECT_EQ(6, total(L"h"));
}

TEST_F(GetDureeTotPlages, TakesTimesWithoutDatesAsOfOneDay) {
  set_slots({{L"", L"08:00", L"", L"09:30"}});
  EXPECT_EQ(1.5, total(L"h"));
}

TEST_F(GetDureeTotPlages, MeasuresAcrossTheDayWhereDatesChangeTheirSign) {
  set_slots({{L"29/12/1899", L"18:00", L"30/12/1899", L"06:00"}});
  EXPECT_EQ(12, total(L"h"));
}

TEST_F(GetDureeTotPlages, FailsForASlotWithoutDate) {
  for (const Slot& slot : {kNoDate, Slot{L"", L"", L"", L""}, Slot{L"01/03/2025", L"08:00", L"", L""},
                           Slot{L"31/02/2025", L"08:00", L"01/03/2025", L"10:30"},
                           Slot{L"01/03/2025", L"25:00", L"01/03/2025", L"10:30"}}) {
    set_slots({kTwoAndAHalfHours, slot});
    EXPECT_TRUE(host::is_fault(run(L"h"), 13, L"Bon")) << host::utf8(slot.date);
  }
}

TEST_F(GetDureeTotPlages, FailsForSlotsFromAnotherLowerBound) {
  set_slots({kTwoAndAHalfHours}, 1);
  EXPECT_TRUE(host::is_fault(run(L"h"), 9, L"Bon"));
}

TEST_F(GetDureeTotPlages, IsZeroForSlotsThatAllLieBelowZero) {
  set_slots({kNoDate}, -3);
  EXPECT_EQ(0, total(L"h"));
}

TEST_F(GetDureeTotPlages, FailsForSlotsOfAnotherSize) {
  technician_->TabPlage = host::make_array(sizeof(Type_BarTime) + 4, 1);
  EXPECT_TRUE(host::is_fault(run(L"h"), 13, L"Bon"));
}

TEST_F(GetDureeTotPlages, ReadsLockedSlotsAndChangesNothing) {
  set_slots({kTwoAndAHalfHours});
  const auto before = host::snapshot(*technician_);
  SafeArrayLock(technician_->TabPlage);
  EXPECT_EQ(2.5, total(L"h"));
  SafeArrayUnlock(technician_->TabPlage);
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*before, *technician_));
}

TEST_F(GetDureeTotPlages, AnswersALateBoundCall) {
  set_slots({kTwoAndAHalfHours});
  const auto info = host::record_info<Type_LigneRessource>();
  host::Variant result;
  ASSERT_EQ(S_OK, host::call(orders_.get(), L"GetDureeTotPlages",
                             host::arguments(host::text_value(L"n"),
                                             host::record_argument(*technician_, info.get())),
                             result.receive()));
  ASSERT_EQ(VT_R8, result.get().vt);
  EXPECT_EQ(150, result.get().dblVal);
}

TEST_F(GetDureeTotPlages, RefusesANullPointer) {
  double result = 0;
  EXPECT_EQ(E_POINTER, orders_->GetDureeTotPlages(Text(L"h"), nullptr, &result));
  EXPECT_EQ(E_POINTER, orders_->GetDureeTotPlages(Text(L"h"), technician_, nullptr));
}

}  // namespace
