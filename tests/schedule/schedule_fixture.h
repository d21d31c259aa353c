// What the tests of a contract's billing schedule share: sample contracts, and calls whose failure fails the
// test.
#pragma once

#include <string>

#include "support/records.h"

namespace host {

/// The period of a billing row.
struct Period {
  std::wstring start;
  std::wstring end;
  bool transferred = false;
};

/// Dimensions the schedule with these rows, each with its own number, label and amounts.
void set_periods(Type_Contrat& contract, const std::vector<Period>& periods);

/// Contract "CTT-7" from 01/01/2025 to 31/12/2025, every text that a billing row copies filled in, with a
/// VAT share, an intervention, a technician and the rows.
Record<Type_Contrat> sample_contract(const std::vector<Period>& periods = {});

/// Four rows of a month each: January to April 2025.
std::vector<Period> four_months();

inline Type_CadencierFact& row(const Type_Contrat& contract, unsigned long index) {
  return element<Type_CadencierFact>(contract.TabCadFact, index);
}
/// Number of elements, whatever the lower bound; -1 when never dimensioned.
long rows_of(const SAFEARRAY* array);

/// The periods as they are written in the record: "01/01/2025-31/01/2025".
std::vector<std::string> periods_of(Type_Contrat& contract);

inline const std::vector<std::string> kNone;

class ScheduleTest : public ::testing::Test {
 protected:
  /// A spread that succeeds; 9999 when it does not.
  short spread(Type_Contrat& contract, short edited, const wchar_t* date, bool start);
  short spread_end(Type_Contrat& contract, short edited, const wchar_t* date) {
    return spread(contract, edited, date, false);
  }
  short spread_start(Type_Contrat& contract, short edited, const wchar_t* date) {
    return spread(contract, edited, date, true);
  }
  /// The spread fails with `fault`, or answers `result`, and the record stays as it was, as a whole.
  void expect_spread_fault(int fault, Type_Contrat& contract, short edited, const wchar_t* date, bool start);
  void expect_spread_nothing(short result, Type_Contrat& contract, short edited, const wchar_t* date,
                             bool start);

  /// Adds a row invoiced on 15/06/2025, from 01/06/2025 to 30/06/2025.
  HRESULT add(Type_Contrat& contract, short* index, short& result, const wchar_t* end = L"30/06/2025");

  std::wstring end_of(const wchar_t* start, long duration, const wchar_t* unit);
  static ::testing::AssertionResult is_contract_fault(HRESULT code, int number) {
    return is_fault(code, number, L"ContratDoc");
  }

  ComPtr<_ContratDoc> contracts_ = create<_ContratDoc>(L"ContratDoc");
};

}  // namespace host
