// Random contracts of a few interventions: sites that stand in groups or come back, codes that differ by
// blanks or case only, rows without site and label, frameworks, work orders, dates that are none.
#pragma once

#include <random>

#include "support/chance.h"
#include "support/records.h"

namespace host {

class RandomContracts {
 public:
  explicit RandomContracts(unsigned seed) : engine_(seed) {}

  Record<Type_Contrat> next();

  /// A number from `low` to `high`.
  int between(int low, int high);
  bool one_in(int count) { return between(1, count) == 1; }

 private:
  void fill_interventions(Type_Contrat& contract);
  void fill_schedule(Type_Contrat& contract);
  void fill_billing(Type_Contrat& contract);
  void fill_notice(Type_PreavisCourrier& notice);
  /// 0 to `most` rows, or none dimensioned.
  template <class T>
  int dimension_rows(SAFEARRAY*& rows, int most);
  template <std::size_t Count>
  const wchar_t* any(const wchar_t* const (&texts)[Count]) {
    return texts[between(0, static_cast<int>(Count) - 1)];
  }

  std::mt19937 engine_;
};

}  // namespace host
