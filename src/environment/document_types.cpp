#include "environment/document_types.h"

namespace velmosav {

std::wstring_view table_name_of(const GeneralConstants& general, std::wstring_view document_type) {
  if (document_type == general.m_c_sTypDoc_Prop.view()) return L"PropCtt";
  if (document_type == general.m_c_sTypDoc_Ctt.view()) return L"Contrat";
  if (document_type == general.m_c_sTypDoc_Interv.view()) return L"Interv";
  return {};
}

std::wstring_view document_type_of(const GeneralConstants& general, std::wstring_view provenance) {
  if (provenance == general.m_c_sProvDoc_Prop.view()) return general.m_c_sTypDoc_Prop;
  if (provenance == general.m_c_sProvDoc_Ctt.view()) return general.m_c_sTypDoc_Ctt;
  if (provenance == general.m_c_sProvDoc_Interv.view()) return general.m_c_sTypDoc_Interv;
  if (provenance == general.m_c_sProvDoc_Fact.view()) return general.m_c_sTypDoc_Fact;
  return {};
}

std::wstring_view provenance_of(const GeneralConstants& general, std::wstring_view document_type) {
  if (document_type == general.m_c_sTypDoc_Ctt.view()) return general.m_c_sProvDoc_Ctt;
  if (document_type == general.m_c_sTypDoc_Interv.view()) return general.m_c_sProvDoc_Interv;
  if (document_type == general.m_c_sTypDoc_Fact.view()) return L"Facture";
  return {};
}

std::wstring_view duration_input_format(const GeneralConstants& general, BSTR& unit, short& value) {
  struct Limit {
    short cap;
    const wchar_t* format;
  };
  constexpr Limit kDays{3642, L"N;4.0;>0;<3642;B"};
  constexpr Limit kWeeks{520, L"N;3.0;>0;<520;B"};
  constexpr Limit kMonths{120, L"N;3.0;>0;<120;B"};
  constexpr Limit kYears{10, L"N;2.0;>0;<10;B"};

  const std::wstring_view wanted = view(unit);
  Limit limit = kDays;
  if (wanted == general.m_c_sUnitDur_Jour.view()) {
    limit = kDays;
  } else if (wanted == general.m_c_sUnitDur_Sem.view()) {
    limit = kWeeks;
  } else if (wanted == general.m_c_sUnitDur_Mois.view()) {
    limit = kMonths;
  } else if (wanted == general.m_c_sUnitDur_Annee.view()) {
    limit = kYears;
  } else {
    assign(unit, general.m_c_sUnitDur_Jour.view());
  }
  if (value > limit.cap) value = limit.cap;
  return limit.format;
}

}  // namespace velmosav
