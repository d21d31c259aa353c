// Recurrence rules and their class as a test uses them.
#pragma once

#include "support/arguments.h"
#include "support/records.h"

namespace host {

/// The fields of a rule that its logic reads.
struct RuleFields {
  const wchar_t* kind = L"";  // Periodicite
  short every = 0;            // TousLes
  short day = 0;              // Chaque
  const wchar_t* ordinal = L"";
  const wchar_t* weekdays = L"";
  const wchar_t* months = L"";
};

Record<Type_Periodicite> rule(const RuleFields& fields);

/// An instance of the class, its methods with plain arguments. A failed call fails the test.
class Recurrence {
 public:
  Recurrence() : object_(create<_Periodicite>(L"Periodicite")) {}
  _Periodicite* operator->() const { return object_.get(); }

  [[nodiscard]] std::wstring names(const wchar_t* keys, const wchar_t* list) const;
  [[nodiscard]] std::wstring weekday_names(const wchar_t* keys) const;
  [[nodiscard]] std::wstring checked(const wchar_t* date) const;
  [[nodiscard]] std::wstring label(const RuleFields& fields) const;
  [[nodiscard]] std::wstring next(const wchar_t* date, const RuleFields& fields) const;
  [[nodiscard]] std::wstring previous(const wchar_t* date, const RuleFields& fields) const;
  [[nodiscard]] std::wstring day_in(short month, short year, const RuleFields& fields) const;
  [[nodiscard]] std::wstring last_day(short month, short year) const;

 private:
  [[nodiscard]] std::wstring neighbour(const wchar_t* date, const RuleFields& fields, bool back) const;
  ComPtr<_Periodicite> object_;
};

/// Today by the machine's clock.
SYSTEMTIME local_today();

/// "07", "12".
std::wstring two_digits(int number);

}  // namespace host
