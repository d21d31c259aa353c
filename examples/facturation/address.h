// An address of the files as an address record.
#pragma once

#include "input.h"
#include "records.h"

namespace facturation {

inline void assign_address(Type_AdresseTiers& record, const Adresse& adresse) {
  record.iNum = static_cast<short>(adresse.numero);
  assign(record.NomSite, adresse.nom_site);
  assign(record.Interloc, adresse.interlocuteur);
  assign(record.Adr, adresse.adresse);
  assign(record.AdrSuite, adresse.complement);
  assign(record.CP, adresse.code_postal);
  assign(record.Ville, adresse.ville);
  assign(record.Tel, adresse.telephone);
  assign(record.Fax, adresse.telecopie);
  assign(record.Mobile, adresse.mobile);
  assign(record.EMail, adresse.email);
}

}  // namespace facturation
