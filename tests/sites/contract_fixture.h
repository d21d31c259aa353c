// A contract's interventions and their schedule as a host fills them, and the methods of ContratDoc that read
// them, with plain arguments.
#pragma once

#include <string>
#include <vector>

#include "support/arguments.h"
#include "support/records.h"

namespace host {

/// The fields of an intervention that its contract's rules read.
struct Visit {
  const wchar_t* site = L"";
  const wchar_t* label = L"";
  bool framework = false;
  short consumed = 0;
  double time_consumed = 0;
};

/// A row of the intervention schedule.
struct Appointment {
  const wchar_t* site = L"";
  const wchar_t* label = L"";
  short visit = 0;
  const wchar_t* work_order = L"";
};

void set_visits(Type_Contrat& contract, const std::vector<Visit>& visits);
/// Interventions that differ by their site only.
void set_sites(Type_Contrat& contract, const std::vector<std::wstring>& sites);
void set_schedule(Type_Contrat& contract, const std::vector<Appointment>& rows);
inline Type_Intervention& visit(Type_Contrat& contract, unsigned long index) {
  return element<Type_Intervention>(contract.TabInterv, index);
}

/// Indices and group numbers.
using Numbers = std::vector<short>;

/// What a call answered. After a failure the value means nothing.
template <class T>
struct Answer {
  HRESULT code;
  T value;
};

template <class T>
T value_of(const Answer<T>& answer) {
  EXPECT_EQ(S_OK, answer.code);
  return answer.value;
}

/// For EXPECT_TRUE(faults(notice_fits(true), 13)).
template <class T>
::testing::AssertionResult faults(const Answer<T>& answer, int number) {
  return is_fault(answer.code, number, L"ContratDoc");
}

/// The methods, on one contract. Each checks that the contract and the arguments by reference stay as they
/// were, whether the call succeeds or not.
class ContratDocInterventions : public ::testing::Test {
 protected:
  Answer<short> count();
  Answer<short> scheduled_count();
  Answer<short> site_number(short index);
  Answer<short> first_of_group(short group);
  Answer<bool> labels_differ(VARIANT* later = nullptr);
  Answer<std::wstring> site_list();
  Answer<bool> is_modifiable(Variant number = missing());
  Answer<bool> notice_fits(bool letter);

  /// FirstIntervSite with both flags as variables of the caller.
  Answer<short> first_of_site(short index, VARIANT_BOOL& following, VARIANT_BOOL& previous);
  Answer<short> own_site(short index);
  Answer<short> following_site(short index);
  Answer<short> previous_site(short index);

  /// CheckDateInterCtt, which may change the contract.
  Answer<bool> correct_dates(short index);

  ComPtr<_ContratDoc> contracts_ = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract_;

 private:
  template <class Call>
  HRESULT unchanging(Call call);
  template <class Call>
  Answer<bool> boolean(Call call);
};

}  // namespace host
