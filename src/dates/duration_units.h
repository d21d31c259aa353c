// The unit of a duration ("J", "S", "M", "A") as an interval of date arithmetic.
#pragma once

#include <string_view>

#include "constants/constant_sets.h"

namespace velmosav {

/// "d", "ww", "m" or "yyyy"; "d" for an unknown unit. Exact comparison.
inline std::wstring_view interval_of_unit(std::wstring_view unit) {
  const GeneralConstants& general = initial<GeneralConstants>;
  if (unit == general.m_c_sUnitDur_Jour.view()) return L"d";
  if (unit == general.m_c_sUnitDur_Sem.view()) return L"ww";
  if (unit == general.m_c_sUnitDur_Mois.view()) return L"m";
  if (unit == general.m_c_sUnitDur_Annee.view()) return L"yyyy";
  return L"d";
}

}  // namespace velmosav
