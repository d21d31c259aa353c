// The day before a period's start and the day after its end, held at the contract's end.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

const wchar_t* const kNoDates[] = {L"", L"  ", L"mars", L"32/01/2025", L"01-2025-xx"};

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_IsTheDayBeforeWithATwoDigitYear) {
  EXPECT_EQ(L"14/03/25", Contracts().end_before(L"15/03/2025"));
}

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_ReadsATwoDigitYear) {
  EXPECT_EQ(L"14/03/25", Contracts().end_before(L"15/03/25"));
}

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_FirstOfAMonthGivesTheLastOfTheMonthBefore) {
  const Contracts contracts;
  EXPECT_EQ(L"28/02/25", contracts.end_before(L"01/03/2025"));
  EXPECT_EQ(L"29/02/24", contracts.end_before(L"01/03/2024"));
  EXPECT_EQ(L"31/12/24", contracts.end_before(L"01/01/2025"));
}

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_TwoDigitYearFallsIntoThePlatformsCentury) {
  const Contracts contracts;
  EXPECT_EQ(L"29/02/00", contracts.end_before(L"01/03/00"));    // 2000, a leap year
  EXPECT_EQ(L"28/02/00", contracts.end_before(L"01/03/1900"));  // 1900, none
}

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_TimeOfDayIsDropped) {
  EXPECT_EQ(L"14/03/25", Contracts().end_before(L"15/03/2025 08:30"));
}

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_TextThatIsNoDateIsFault13) {
  const Contracts contracts;
  for (const wchar_t* text : kNoDates) {
    Text result;
    EXPECT_TRUE(is_contract_fault(contracts->CadFactPeriod_GetEndFromNextStart(Text(text), &result), 13))
        << utf8(text);
  }
}

TEST(ContratDoc, CadFactPeriod_GetStartFromPreviousEnd_IsTheDayAfterWithATwoDigitYear) {
  EXPECT_EQ(L"16/03/25", Contracts().start_after(L"15/03/2025"));
}

TEST(ContratDoc, CadFactPeriod_GetStartFromPreviousEnd_LastOfAMonthGivesTheFirstOfTheNext) {
  const Contracts contracts;
  EXPECT_EQ(L"01/03/25", contracts.start_after(L"28/02/2025"));
  EXPECT_EQ(L"29/02/24", contracts.start_after(L"28/02/2024"));
  EXPECT_EQ(L"01/01/26", contracts.start_after(L"31/12/2025"));
}

TEST(ContratDoc, CadFactPeriod_GetStartFromPreviousEnd_TextThatIsNoDateIsFault13) {
  const Contracts contracts;
  for (const wchar_t* text : kNoDates) {
    Text result;
    EXPECT_TRUE(is_contract_fault(contracts->CadFactPeriod_GetStartFromPreviousEnd(Text(text), &result), 13))
        << utf8(text);
  }
}

TEST(ContratDoc, CadFactPeriod_GetStartFromPreviousEnd_NullTextIsFault13) {
  Text result;
  EXPECT_TRUE(is_contract_fault(Contracts()->CadFactPeriod_GetStartFromPreviousEnd(nullptr, &result), 13));
}

TEST(ContratDoc, CadFactPeriod_GetStartFromPreviousEnd_BeyondTheLastYearIsFault5) {
  Text result;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->CadFactPeriod_GetStartFromPreviousEnd(Text(L"31/12/9999"), &result), 5));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_InsideTheContractIsTheDayAfter) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"16/03/25", Contracts().start_after(record, L"15/03/2025"));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_OnTheContractsLastDayIsNotReplaced) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"31/12/25", Contracts().start_after(record, L"30/12/2025"));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_PastTheContractsEndIsItsEndAsWritten) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"31/12/2025", Contracts().start_after(record, L"31/12/2025"));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_BlankContractEndDisablesTheCap) {
  for (const wchar_t* end : {L"", L"   "}) {
    auto record = contract(L"01/01/2025", end);
    EXPECT_EQ(L"01/06/28", Contracts().start_after(record, L"31/05/2028"));
  }
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_IsNotHeldAtTheContractsStart) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"16/06/20", Contracts().start_after(record, L"15/06/2020"));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_LeavesTheContractAsItWas) {
  auto record = contract(L"01/01/2025", L"31/12/2025", {{L"01/01/2025", L"31/12/2025"}});
  const auto before = snapshot(*record);
  (void)Contracts().start_after(record, L"31/12/2025");
  expect_same(*before, *record);
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_TextThatIsNoDateIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  Text result;
  EXPECT_TRUE(is_contract_fault(Contracts()->Ctt_SetCadFactStartPeriod(record, Text(L"fin"), &result), 13));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_ContractEndThatIsNoDateIsFault13) {
  auto record = contract(L"01/01/2025", L"indéterminée");
  Text result;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->Ctt_SetCadFactStartPeriod(record, Text(L"15/03/2025"), &result), 13));
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_InsideTheContractIsTheDayBefore) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"14/03/25", Contracts().end_before(record, L"15/03/2025"));
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_OnTheContractsLastDayIsNotReplaced) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"31/12/25", Contracts().end_before(record, L"01/01/2026"));
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_PastTheContractsEndIsItsEndAsWritten) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"31/12/2025", Contracts().end_before(record, L"02/01/2026"));
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_BlankContractEndDisablesTheCap) {
  for (const wchar_t* end : {L"", L" "}) {
    auto record = contract(L"01/01/2025", end);
    EXPECT_EQ(L"31/05/28", Contracts().end_before(record, L"01/06/2028"));
  }
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_IsNotHeldAtTheContractsStart) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"14/06/20", Contracts().end_before(record, L"15/06/2020"));
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_LeavesTheContractAsItWas) {
  auto record = contract(L"01/01/2025", L"31/12/2025", {{L"01/01/2025", L"31/12/2025"}});
  const auto before = snapshot(*record);
  (void)Contracts().end_before(record, L"02/01/2026");
  expect_same(*before, *record);
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_TextThatIsNoDateIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  Text result;
  EXPECT_TRUE(is_contract_fault(Contracts()->Ctt_SetCadFactEndPeriod(record, Text(L""), &result), 13));
}

TEST(ContratDoc, NeighbourDates_NullContractOrResultIsEPointer) {
  const Contracts contracts;
  auto record = contract(L"01/01/2025", L"31/12/2025");
  Text date(L"15/03/2025");
  Text result;
  EXPECT_EQ(E_POINTER, contracts->Ctt_SetCadFactStartPeriod(nullptr, date, &result));
  EXPECT_EQ(E_POINTER, contracts->Ctt_SetCadFactEndPeriod(nullptr, date, &result));
  EXPECT_EQ(E_POINTER, contracts->Ctt_SetCadFactStartPeriod(record, date, nullptr));
  EXPECT_EQ(E_POINTER, contracts->Ctt_SetCadFactEndPeriod(record, date, nullptr));
  EXPECT_EQ(E_POINTER, contracts->CadFactPeriod_GetEndFromNextStart(date, nullptr));
  EXPECT_EQ(E_POINTER, contracts->CadFactPeriod_GetStartFromPreviousEnd(date, nullptr));
}

}  // namespace
