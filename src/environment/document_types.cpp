#include "environment/document_types.h"

#include <algorithm>
#include <iterator>

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

Bstr duration_input_format(const GeneralConstants& general, BSTR& unit, short& value) {
  struct Limit {
    std::wstring_view unit;
    short cap;
    const wchar_t* format;
  };
  const Limit limits[] = {{general.m_c_sUnitDur_Jour, 3642, L"N;4.0;>0;<3642;B"},
                          {general.m_c_sUnitDur_Sem, 520, L"N;3.0;>0;<520;B"},
                          {general.m_c_sUnitDur_Mois, 120, L"N;3.0;>0;<120;B"},
                          {general.m_c_sUnitDur_Annee, 10, L"N;2.0;>0;<10;B"}};

  const auto* known = std::ranges::find(limits, view(unit), &Limit::unit);
  const Limit& limit = known != std::end(limits) ? *known : limits[0];
  Bstr format(limit.format);
  if (known == std::end(limits)) assign(unit, limit.unit);
  if (value > limit.cap) value = limit.cap;
  return format;
}

}  // namespace velmosav
