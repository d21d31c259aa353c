// The members of each class that publishes any, one function for each.
#pragma once

#include "contract/published.h"

namespace contract {

Class achat_vente();
Class api_general();
Class api_impr();
Class api_skin();
Class article();
Class bon();
Class cls_dll_trad();
Class contrat_doc();
Class couverture();
Class droits();
Class financ_contrat();
Class general();
Class generation();
Class interv_doc();
Class intervention();
Class invoice_xml_lib();
Class module_scroll();
Class outil();
Class periodicite();
Class planning();
Class preference();
Class reconduction();
Class sav_api_liste();
Class sav_impr();
Class statistique();
Class tva_repart();

}  // namespace contract
