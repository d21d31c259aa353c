#include "contract/published_classes.h"

#include "support/host.h"

namespace contract {

const std::vector<Class>& classes() {
  static const std::vector<Class> all{
      {L"Adresses", {}, {}},
      couverture(),
      intervention(),
      {L"Preavis", {}, {}},
      periodicite(),
      bon(),
      planning(),
      interv_doc(),
      achat_vente(),
      {L"TPF", {}, {}},
      financ_contrat(),
      contrat_doc(),
      {L"Garantie", {}, {}},
      tva_repart(),
      article(),
      outil(),
      general(),
      statistique(),
      preference(),
      droits(),
      module_scroll(),
      api_impr(),
      sav_impr(),
      sav_api_liste(),
      cls_dll_trad(),
      api_skin(),
      reconduction(),
      {L"cToolTip2", {}, {}},
      generation(),
      invoice_xml_lib(),
      api_general(),
  };
  return all;
}

std::ostream& operator<<(std::ostream& stream, const Class& entry) {
  return stream << host::utf8(entry.name);
}

std::ostream& operator<<(std::ostream& stream, const Record& record) {
  return stream << host::utf8(record.name);
}

std::ostream& operator<<(std::ostream& stream, const Enumeration& enumeration) {
  return stream << host::utf8(enumeration.name);
}

}  // namespace contract
