// ContratDoc: the start of the period that follows, the end of the one that precedes.
#include "schedule/schedule_fixture.h"

namespace {

using host::Text;

class NeighbourPeriod : public host::ScheduleTest {
 protected:
  std::wstring end_from(const wchar_t* start) {
    Text end;
    EXPECT_EQ(S_OK, contracts_->CadFactPeriod_GetEndFromNextStart(Text(start), &end));
    return end.str();
  }
  std::wstring start_from(const wchar_t* end) {
    Text start;
    EXPECT_EQ(S_OK, contracts_->CadFactPeriod_GetStartFromPreviousEnd(Text(end), &start));
    return start.str();
  }
  std::wstring start_after(const wchar_t* end) {
    Text start;
    EXPECT_EQ(S_OK, contracts_->Ctt_SetCadFactStartPeriod(contract_, Text(end), &start));
    return start.str();
  }
  std::wstring end_before(const wchar_t* start) {
    Text end;
    EXPECT_EQ(S_OK, contracts_->Ctt_SetCadFactEndPeriod(contract_, Text(start), &end));
    return end.str();
  }
  void contract_end(const wchar_t* end) { host::set(contract_->DateFin, end); }

  host::Record<Type_Contrat> contract_ = host::sample_contract();
};

TEST_F(NeighbourPeriod, GetEndFromNextStartIsTheDayBeforeAcrossAYear) {
  EXPECT_EQ(L"31/12/24", end_from(L"01/01/2025"));
}

TEST_F(NeighbourPeriod, GetEndFromNextStartKnowsLeapYears) {
  EXPECT_EQ(L"29/02/24", end_from(L"01/03/2024"));
  EXPECT_EQ(L"28/02/25", end_from(L"01/03/25"));
}

TEST_F(NeighbourPeriod, GetStartFromPreviousEndIsTheDayAfterAcrossAYear) {
  EXPECT_EQ(L"01/01/25", start_from(L"31/12/24"));
}

TEST_F(NeighbourPeriod, GetStartFromPreviousEndKnowsLeapYears) {
  EXPECT_EQ(L"29/02/24", start_from(L"28/02/2024"));
  EXPECT_EQ(L"01/03/25", start_from(L"28/02/2025"));
}

TEST_F(NeighbourPeriod, TextThatIsNoDateIsFault13) {
  Text result;
  for (const wchar_t* text : {L"", L"mars", L"31/02/2025x"}) {
    EXPECT_TRUE(is_contract_fault(contracts_->CadFactPeriod_GetEndFromNextStart(Text(text), &result), 13));
    EXPECT_TRUE(
        is_contract_fault(contracts_->CadFactPeriod_GetStartFromPreviousEnd(Text(text), &result), 13));
    EXPECT_TRUE(is_contract_fault(contracts_->Ctt_SetCadFactStartPeriod(contract_, Text(text), &result), 13));
    EXPECT_TRUE(is_contract_fault(contracts_->Ctt_SetCadFactEndPeriod(contract_, Text(text), &result), 13));
  }
}

TEST_F(NeighbourPeriod, SetCadFactStartPeriodIsTheDayAfterWithinTheContract) {
  EXPECT_EQ(L"01/07/25", start_after(L"30/06/2025"));
}

TEST_F(NeighbourPeriod, SetCadFactStartPeriodOnTheContractsEndIsNotCapped) {
  EXPECT_EQ(L"31/12/25", start_after(L"30/12/2025"));
}

TEST_F(NeighbourPeriod, SetCadFactStartPeriodPastTheContractsEndIsItsEndAsWritten) {
  EXPECT_EQ(L"31/12/2025", start_after(L"31/12/2025"));
}

TEST_F(NeighbourPeriod, SetCadFactStartPeriodIsNotCappedByABlankEnd) {
  for (const wchar_t* end : {L"", L"   "}) {
    contract_end(end);
    EXPECT_EQ(L"01/01/26", start_after(L"31/12/2025"));
  }
}

TEST_F(NeighbourPeriod, SetCadFactStartPeriodIsNotHeldByTheContractsStart) {
  EXPECT_EQ(L"02/05/24", start_after(L"01/05/2024"));
}

TEST_F(NeighbourPeriod, SetCadFactEndPeriodIsTheDayBeforeWithinTheContract) {
  EXPECT_EQ(L"30/06/25", end_before(L"01/07/2025"));
}

TEST_F(NeighbourPeriod, SetCadFactEndPeriodOnTheContractsEndIsNotCapped) {
  EXPECT_EQ(L"31/12/25", end_before(L"01/01/2026"));
}

TEST_F(NeighbourPeriod, SetCadFactEndPeriodPastTheContractsEndIsItsEndAsWritten) {
  EXPECT_EQ(L"31/12/2025", end_before(L"02/01/2026"));
}

TEST_F(NeighbourPeriod, SetCadFactEndPeriodIsNotCappedByABlankEnd) {
  for (const wchar_t* end : {L"", L"  "}) {
    contract_end(end);
    EXPECT_EQ(L"09/02/26", end_before(L"10/02/2026"));
  }
}

TEST_F(NeighbourPeriod, SetCadFactEndPeriodIsNotHeldByTheContractsStart) {
  EXPECT_EQ(L"31/12/24", end_before(L"01/01/2025"));
}

TEST_F(NeighbourPeriod, ContractEndThatIsNoDateIsFault13) {
  contract_end(L"fin");
  Text result;
  EXPECT_TRUE(
      is_contract_fault(contracts_->Ctt_SetCadFactStartPeriod(contract_, Text(L"01/01/2025"), &result), 13));
  EXPECT_TRUE(
      is_contract_fault(contracts_->Ctt_SetCadFactEndPeriod(contract_, Text(L"01/01/2025"), &result), 13));
}

TEST_F(NeighbourPeriod, LeavesTheContractAsItWas) {
  const auto before = host::snapshot(*contract_);
  start_after(L"31/12/2025");
  end_before(L"02/01/2026");
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

TEST_F(NeighbourPeriod, NullRecordOrResultIsEPointer) {
  Text date(L"01/01/2025");
  Text result;
  EXPECT_EQ(E_POINTER, contracts_->CadFactPeriod_GetEndFromNextStart(date, nullptr));
  EXPECT_EQ(E_POINTER, contracts_->CadFactPeriod_GetStartFromPreviousEnd(date, nullptr));
  EXPECT_EQ(E_POINTER, contracts_->Ctt_SetCadFactStartPeriod(nullptr, date, &result));
  EXPECT_EQ(E_POINTER, contracts_->Ctt_SetCadFactStartPeriod(contract_, date, nullptr));
  EXPECT_EQ(E_POINTER, contracts_->Ctt_SetCadFactEndPeriod(nullptr, date, &result));
  EXPECT_EQ(E_POINTER, contracts_->Ctt_SetCadFactEndPeriod(contract_, date, nullptr));
}

}  // namespace
