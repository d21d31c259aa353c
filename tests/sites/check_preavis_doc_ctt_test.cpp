// ContratDoc.CheckPreavisDocCtt: a notice fits within the contract's duration, counted from its start.
#include "sites/contract_fixture.h"

namespace host {
namespace {

struct Span {
  short length;
  const wchar_t* unit;
};

struct Notice {
  const char* name;
  const wchar_t* start;
  Span contract;
  Span notice;
  bool fits;
};

class ContratDocNotice : public ContratDocInterventions {
 protected:
  void set_contract(const wchar_t* start, const Span& duration) {
    set(contract_->DateDeb, start);
    contract_->Duree = duration.length;
    set(contract_->UnitDuree, duration.unit);
  }
  static void set_notice(Type_PreavisCourrier& field, const Span& notice, bool letter = true) {
    field.Courrier = velmosav::to_variant_bool(letter);
    field.Duree = notice.length;
    set(field.Unite, notice.unit);
  }
};

class ContratDocNoticeTable : public ContratDocNotice, public ::testing::WithParamInterface<Notice> {};

TEST_P(ContratDocNoticeTable, CheckPreavisDocCtt_OfTheContractsNotice) {
  set_contract(GetParam().start, GetParam().contract);
  set_notice(contract_->PreavisD, GetParam().notice);
  EXPECT_EQ(GetParam().fits, value_of(notice_fits(false)));
}

TEST_P(ContratDocNoticeTable, CheckPreavisDocCtt_OfTheLetter) {
  set_contract(GetParam().start, GetParam().contract);
  set_notice(contract_->Preavis, GetParam().notice);
  EXPECT_EQ(GetParam().fits, value_of(notice_fits(true)));
}

INSTANTIATE_TEST_SUITE_P(
    Notices, ContratDocNoticeTable,
    ::testing::Values(
        Notice{"ShorterThanTheContract_Fits", L"01/01/2025", {12, L"M"}, {3, L"M"}, true},
        Notice{"AsLongAsTheContract_Fits", L"01/01/2025", {12, L"M"}, {12, L"M"}, true},
        Notice{"OneDayLonger_DoesNotFit", L"01/01/2025", {31, L"J"}, {32, L"J"}, false},
        Notice{"OneDayShorter_Fits", L"01/01/2025", {31, L"J"}, {30, L"J"}, true},
        Notice{"AYearIsTwelveMonths", L"01/01/2025", {12, L"M"}, {1, L"A"}, true},
        Notice{"AYearIs365Days", L"01/01/2025", {365, L"J"}, {1, L"A"}, true},
        Notice{"ALeapYearIsNot365Days", L"01/01/2024", {365, L"J"}, {1, L"A"}, false},
        Notice{"AWeekIsSevenDays", L"01/01/2025", {7, L"J"}, {1, L"S"}, true},
        Notice{"AWeekIsMoreThanSixDays", L"01/01/2025", {6, L"J"}, {1, L"S"}, false},
        Notice{"AWeekIsLessThanEightDays", L"01/01/2025", {1, L"S"}, {8, L"J"}, false},
        Notice{"AMonthFromTheEndOfJanuary_EndsWithFebruary", L"31/01/2025", {28, L"J"}, {1, L"M"}, true},
        Notice{"AMonthFromTheEndOfJanuary_IsMoreThan27Days", L"31/01/2025", {27, L"J"}, {1, L"M"}, false},
        Notice{"AYearFromTheLeapDay_EndsInFebruary", L"29/02/2024", {365, L"J"}, {1, L"A"}, true},
        Notice{"UnknownUnitOfTheContract_IsDays", L"01/01/2025", {10, L"X"}, {11, L"J"}, false},
        Notice{"BlankUnitOfTheNotice_IsDays", L"01/01/2025", {10, L"J"}, {10, L""}, true},
        Notice{"UnitsInLowerCase_AreDays", L"01/01/2025", {1, L"m"}, {2, L"J"}, false},
        Notice{"NoNoticeAndNoDuration_Fits", L"01/01/2025", {0, L""}, {0, L""}, true},
        Notice{"NegativeDuration_HasNoRoomForNoNotice", L"01/01/2025", {-1, L"M"}, {0, L"M"}, false},
        Notice{"NegativeNotice_Fits", L"01/01/2025", {0, L"M"}, {-1, L"M"}, true},
        Notice{"TimeOfDay_DoesNotCount", L"01/01/2025 18:30", {1, L"M"}, {31, L"J"}, true},
        Notice{"EndPastTheWindowOfTwoDigitYears_StaysLater", L"01/01/2025", {80, L"A"}, {1, L"J"}, true},
        Notice{"NoticePastTheWindowOfTwoDigitYears_StaysLater", L"01/01/2025", {1, L"J"}, {80, L"A"}, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ContratDocNotice, CheckPreavisDocCtt_OfTheLetter_ReadsTheLettersNoticeOnly) {
  set_contract(L"01/01/2025", {1, L"M"});
  set_notice(contract_->Preavis, {2, L"M"});
  set_notice(contract_->PreavisD, {1, L"J"});
  EXPECT_FALSE(value_of(notice_fits(true)));
  EXPECT_TRUE(value_of(notice_fits(false)));
}

TEST_F(ContratDocNotice, CheckPreavisDocCtt_OfTheLetterWithoutLetter_IsTrue) {
  set_contract(L"01/01/2025", {1, L"M"});
  set_notice(contract_->Preavis, {2, L"M"}, false);
  EXPECT_TRUE(value_of(notice_fits(true)));
}

TEST_F(ContratDocNotice, CheckPreavisDocCtt_OfTheContract_DoesNotAskForALetter) {
  set_contract(L"01/01/2025", {1, L"M"});
  set_notice(contract_->PreavisD, {2, L"M"}, false);
  EXPECT_FALSE(value_of(notice_fits(false)));
}

TEST_F(ContratDocNotice, CheckPreavisDocCtt_EndDateOfTheContract_IsNotRead) {
  set_contract(L"01/01/2025", {12, L"M"});
  set(contract_->DateFin, L"sans fin");
  set_notice(contract_->PreavisD, {3, L"M"});
  EXPECT_TRUE(value_of(notice_fits(false)));
}

TEST_F(ContratDocNotice, CheckPreavisDocCtt_StartThatIsNoDate_IsFault13) {
  for (const wchar_t* start : {L"", L"bientôt", L"32/01/2025"}) {
    set_contract(start, {1, L"M"});
    EXPECT_TRUE(faults(notice_fits(false), 13)) << utf8(start);
    EXPECT_TRUE(faults(notice_fits(true), 13)) << utf8(start);
  }
}

TEST_F(ContratDocNotice, CheckPreavisDocCtt_StartThatIsNoDateWithoutLetter_IsStillFault13) {
  set_contract(L"", {1, L"M"});
  set_notice(contract_->Preavis, {2, L"M"}, false);
  EXPECT_TRUE(faults(notice_fits(true), 13));
}

}  // namespace
}  // namespace host
