// Contracts, their billing schedule and their class as a test uses them.
#pragma once

#include <initializer_list>

#include "support/arguments.h"
#include "support/filled_record.h"
#include "support/records.h"

namespace host {

/// A row of the billing schedule, by what the rules of periods read of it.
struct Period {
  std::wstring_view start;
  std::wstring_view end;
  bool transferred = false;
};

/// A contract with every field filled, one intervention in its schedule without work order, and billing rows
/// that are neither forced nor invoiced. Without periods the billing schedule is never dimensioned.
Record<Type_Contrat> contract(std::wstring_view start, std::wstring_view end,
                              std::initializer_list<Period> periods = {});
/// A contract of that tariff kind: net amounts 90 and 108, two rows of 100.10 and 200.20 before tax, 120.12
/// and 240.24 with it.
Record<Type_Contrat> priced_contract(const wchar_t* kind);

Type_CadencierFact& row(Record<Type_Contrat>& contract, unsigned long index);
void set_period(Type_CadencierFact& row, std::wstring_view start, std::wstring_view end);
/// Keeps the first `count` rows, or adds empty ones, as a host's own re-dimensioning would.
void resize_schedule(Type_Contrat& contract, unsigned long count);
/// Rows of the billing schedule with other bounds, or elements of another kind, than a schedule has.
void dimension_from_one(Type_Contrat& contract, unsigned long count);
void dimension_two_dimensions(Type_Contrat& contract);
void dimension_other_elements(Type_Contrat& contract);

/// Compares whole records, arrays and texts included.
void expect_same(const Type_Contrat& expected, const Type_Contrat& actual);

/// An instance of the class, its methods with plain results. A failed call fails the test.
class Contracts {
 public:
  Contracts() : object_(create<_ContratDoc>(L"ContratDoc")) {}
  _ContratDoc* operator->() const { return object_.get(); }

  [[nodiscard]] std::wstring end_before(std::wstring_view start) const;
  [[nodiscard]] std::wstring start_after(std::wstring_view end) const;
  [[nodiscard]] std::wstring start_after(Record<Type_Contrat>& contract, std::wstring_view end) const;
  [[nodiscard]] std::wstring end_before(Record<Type_Contrat>& contract, std::wstring_view start) const;
  /// The end of a row was edited; or its start.
  [[nodiscard]] short spread_end(Record<Type_Contrat>& contract, short row, std::wstring_view date) const;
  [[nodiscard]] short spread_start(Record<Type_Contrat>& contract, short row, std::wstring_view date) const;
  /// Adds a row; `index` null: left out.
  short add(Record<Type_Contrat>& contract, std::wstring_view invoicing, std::wstring_view start,
            std::wstring_view end, short* index = nullptr) const;
  [[nodiscard]] std::wstring last_end(Record<Type_Contrat>& contract, bool transferred,
                                      std::wstring_view fallback) const;
  [[nodiscard]] std::wstring end_of(std::wstring_view start, long duration, std::wstring_view unit) const;
  [[nodiscard]] bool is_committed(Record<Type_Contrat>& contract, VARIANT* billing = nullptr,
                                  VARIANT* interventions = nullptr, VARIANT* number = nullptr) const;
  /// A method that takes the contract and answers a 16-bit number: counts and flags.
  using Question = HRESULT (STDMETHODCALLTYPE _ContratDoc::*)(Type_Contrat*, short*);
  [[nodiscard]] short answer(Question question, Record<Type_Contrat>& contract) const;

 private:
  ComPtr<_ContratDoc> object_;
};

/// The last year that the platform takes two digits for, such as 2029 or 2049: those after it are read a
/// century earlier.
int last_two_digit_year();
/// "dd/mm/yy", and with the whole year.
std::wstring short_date(int day, int month, int year);
std::wstring long_date(int day, int month, int year);

/// A fault of the class.
inline ::testing::AssertionResult is_contract_fault(HRESULT code, int number) {
  return is_fault(code, number, L"ContratDoc");
}

}  // namespace host
