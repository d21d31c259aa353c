// ContratDoc.CheckDateInterCtt: an intervention's dates lie inside its contract.
#include "sites/contract_fixture.h"

namespace host {
namespace {

constexpr wchar_t kStart[] = L"01/03/2025";
constexpr wchar_t kEnd[] = L"28/02/2026";
using Changes = std::vector<std::string>;

class ContratDocDates : public ContratDocInterventions {
 protected:
  void SetUp() override {
    set_contract(kStart, kEnd);
    set_visits(*contract_, std::vector<Visit>(3, Visit{.site = L"A", .label = L"Visite"}));
    for (const unsigned long i : {0UL, 1UL, 2UL}) set_dates(i, L"15/06/2025", L"15/09/2025");
  }

  void set_contract(const wchar_t* start, const wchar_t* end) {
    set(contract_->DateDeb, start);
    set(contract_->DateFin, end);
  }
  void set_dates(unsigned long index, const wchar_t* first, const wchar_t* last) {
    set(visit(*contract_, index).DatePrem, first);
    set(visit(*contract_, index).DateFin, last);
  }

  /// The changes that the call makes to the whole contract for row 1 with these dates.
  Changes changes(const wchar_t* first, const wchar_t* last) {
    set_dates(1, first, last);
    const auto before = snapshot(*contract_);
    const bool corrected = value_of(correct_dates(1));
    const Changes found = differences(*before, *contract_);
    EXPECT_EQ(!found.empty(), corrected);
    return found;
  }
};

TEST_F(ContratDocDates, CheckDateInterCtt_BlankDatePrem_BecomesTheContractStart) {
  EXPECT_EQ(Changes{"TabInterv(1).DatePrem:  / 01/03/2025"}, changes(L"", L"15/09/2025"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_BlankDateFin_BecomesTheContractEnd) {
  EXPECT_EQ(Changes{"TabInterv(1).DateFin:  / 28/02/2026"}, changes(L"15/06/2025", L""));
}

TEST_F(ContratDocDates, CheckDateInterCtt_BothBlank_BothAreCorrected) {
  EXPECT_EQ((Changes{"TabInterv(1).DatePrem:  / 01/03/2025", "TabInterv(1).DateFin:  / 28/02/2026"}),
            changes(L"", L""));
}

TEST_F(ContratDocDates, CheckDateInterCtt_BothInside_ChangesNothing) {
  EXPECT_EQ(Changes{}, changes(L"02/03/2025", L"27/02/2026"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_DatesOnTheContractsFirstAndLastDay_AreInside) {
  EXPECT_EQ(Changes{}, changes(L"01/03/2025", L"28/02/2026"));
  EXPECT_EQ(Changes{}, changes(L"28/02/2026", L"01/03/2025"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_DatePremOutside_BecomesTheContractStart) {
  EXPECT_EQ(Changes{"TabInterv(1).DatePrem: 28/02/2025 / 01/03/2025"}, changes(L"28/02/2025", L"15/09/2025"));
  EXPECT_EQ(Changes{"TabInterv(1).DatePrem: 01/03/2026 / 01/03/2025"}, changes(L"01/03/2026", L"15/09/2025"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_DateFinOutside_BecomesTheContractEnd) {
  EXPECT_EQ(Changes{"TabInterv(1).DateFin: 28/02/2025 / 28/02/2026"}, changes(L"15/06/2025", L"28/02/2025"));
  EXPECT_EQ(Changes{"TabInterv(1).DateFin: 01/03/2026 / 28/02/2026"}, changes(L"15/06/2025", L"01/03/2026"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_TextsThatAreNoDate_AreReplaced) {
  EXPECT_EQ((Changes{"TabInterv(1).DatePrem: bientôt / 01/03/2025",
                     "TabInterv(1).DateFin: 31/06/2025 x / 28/02/2026"}),
            changes(L"bientôt", L"31/06/2025 x"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_DateFinBeforeDatePrem_IsNoConcern) {
  EXPECT_EQ(Changes{}, changes(L"01/12/2025", L"01/04/2025"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_TimesOfDayDoNotCount) {
  EXPECT_EQ(Changes{}, changes(L"28/02/2026 23:59", L"28/02/2026 08:00"));
  set_contract(L"01/03/2025 12:00", L"28/02/2026 12:00");
  EXPECT_EQ(Changes{}, changes(L"01/03/2025", L"28/02/2026 18:00"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_DatesInside_KeepTheirForm) {
  EXPECT_EQ(Changes{}, changes(L"2/3/25", L"27-02-2026"));
}

TEST_F(ContratDocDates, CheckDateInterCtt_CorrectedDates_TakeTheContractsTextAsItIs) {
  set_contract(L"1/3/25", L"28/2/26");
  EXPECT_EQ((Changes{"TabInterv(1).DatePrem:  / 1/3/25", "TabInterv(1).DateFin:  / 28/2/26"}),
            changes(L"", L""));
}

TEST_F(ContratDocDates, CheckDateInterCtt_NoDatesAtAll_TakeTheContractsTextsWithoutReadingThem) {
  set_contract(L"début", L"fin");
  EXPECT_EQ((Changes{"TabInterv(1).DatePrem:  / début", "TabInterv(1).DateFin:  / fin"}), changes(L"", L""));
}

TEST_F(ContratDocDates, CheckDateInterCtt_BlankDatesInAContractWithoutDates_AreCorrectedAllTheSame) {
  set_contract(L"", L"");
  set_dates(1, L"", L"");
  EXPECT_TRUE(value_of(correct_dates(1)));
}

TEST_F(ContratDocDates, CheckDateInterCtt_FirstAndLastRow_AreReachedByTheirIndex) {
  for (const unsigned long row : {0UL, 2UL}) {
    set_dates(row, L"", L"15/09/2025");
    const auto before = snapshot(*contract_);
    EXPECT_TRUE(value_of(correct_dates(static_cast<short>(row))));
    EXPECT_EQ(Changes{"TabInterv(" + std::to_string(row) + ").DatePrem:  / 01/03/2025"},
              differences(*before, *contract_));
  }
}

TEST_F(ContratDocDates, CheckDateInterCtt_ContractStartThatIsNoDate_IsFault13AndChangesNothing) {
  set_contract(L"", kEnd);
  const auto before = snapshot(*contract_);
  EXPECT_TRUE(faults(correct_dates(1), 13));
  EXPECT_EQ(Changes{}, differences(*before, *contract_));
}

TEST_F(ContratDocDates, CheckDateInterCtt_ContractEndThatIsNoDate_IsFault13AndChangesNothing) {
  set_contract(kStart, L"fin");
  const auto before = snapshot(*contract_);
  EXPECT_TRUE(faults(correct_dates(1), 13));
  EXPECT_EQ(Changes{}, differences(*before, *contract_));
}

TEST_F(ContratDocDates, CheckDateInterCtt_FaultAtDateFin_KeepsTheCorrectedDatePrem) {
  set_contract(kStart, L"fin");
  set_dates(1, L"", L"15/09/2025");
  const auto before = snapshot(*contract_);
  EXPECT_TRUE(faults(correct_dates(1), 13));
  EXPECT_EQ(Changes{"TabInterv(1).DatePrem:  / 01/03/2025"}, differences(*before, *contract_));
}

TEST_F(ContratDocDates, CheckDateInterCtt_IndexOutside_IsFault9AndChangesNothing) {
  const auto before = snapshot(*contract_);
  for (const short index : Numbers{-32768, -1, 3, 32767})
    EXPECT_TRUE(faults(correct_dates(index), 9)) << index;
  EXPECT_EQ(Changes{}, differences(*before, *contract_));
}

TEST_F(ContratDocInterventions, CheckDateInterCtt_NoIntervention_IsFault9) {
  EXPECT_TRUE(faults(correct_dates(0), 9));
  set_visits(*contract_, {});
  EXPECT_TRUE(faults(correct_dates(0), 9));
}

}  // namespace
}  // namespace host
