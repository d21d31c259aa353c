// Records that several documents embed.
#include "contract/published_records.h"

namespace contract {
namespace {

Record ligne_repart_tva() {
  using Layout = ::Type_LigneRepartTVA;
  return {L"Type_LigneRepartTVA",
          sizeof(Layout),
          {
              FIELD(Pourcent, "R8"),
              FIELD(MontantBase, "R8"),
              FIELD(MontantTVA, "R8"),
              FIELD(TauxTva, "R8"),
              FIELD(Compte, "BSTR"),
              FIELD(CompteEnc, "BSTR"),
          }};
}

Record repart_tva() {
  using Layout = ::Type_RepartTVA;
  return {L"Type_RepartTVA",
          sizeof(Layout),
          {
              FIELD(Lignes, "table of 100 Type_LigneRepartTVA"),
              FIELD(FormatTVA, "BSTR"),
              FIELD(FormatTVANonMulti, "BSTR"),
          }};
}

Record technicien() {
  using Layout = ::Type_Technicien;
  return {L"Type_Technicien",
          sizeof(Layout),
          {
              FIELD(Reserve, "I4"),
          }};
}

Record adresse_tiers() {
  using Layout = ::Type_AdresseTiers;
  return {L"Type_AdresseTiers",
          sizeof(Layout),
          {
              FIELD(lParent, "I4"),    FIELD(bDef, "BOOL"),      FIELD(iNum, "I2"),
              FIELD(NomSite, "BSTR"),  FIELD(Interloc, "BSTR"),  FIELD(Civilite, "BSTR"),
              FIELD(Tel, "BSTR"),      FIELD(Fax, "BSTR"),       FIELD(Mobile, "BSTR"),
              FIELD(Adr, "BSTR"),      FIELD(AdrSuite, "BSTR"),  FIELD(CP, "BSTR"),
              FIELD(Ville, "BSTR"),    FIELD(Pays, "BSTR"),      FIELD(EMail, "BSTR"),
              FIELD(Internet, "BSTR"), FIELD(Qualite, "BSTR"),   FIELD(FactPrinc, "BOOL"),
              FIELD(LivPrinc, "BOOL"), FIELD(Kilometrage, "R8"), FIELD(ZoneInt, "BSTR"),
              FIELD(comment, "BSTR"),  FIELD(Modifie, "BOOL"),   FIELD(RubSup, "array of VARIANT"),
          }};
}

Record preavis_courrier() {
  using Layout = ::Type_PreavisCourrier;
  return {L"Type_PreavisCourrier",
          sizeof(Layout),
          {
              FIELD(Courrier, "BOOL"),
              FIELD(Duree, "I2"),
              FIELD(Unite, "BSTR"),
          }};
}

Record periodicite() {
  using Layout = ::Type_Periodicite;
  return {L"Type_Periodicite",
          sizeof(Layout),
          {
              FIELD(VersionType, "I2"),
              FIELD(Libelle, "BSTR"),
              FIELD(Periodicite, "BSTR"),
              FIELD(TousLes, "I2"),
              FIELD(Chaque, "I2"),
              FIELD(Le, "BSTR"),
              FIELD(Jour, "BSTR"),
              FIELD(Mois, "BSTR"),
              FIELD(JFeries, "BOOL"),
          }};
}

Record ligne_couverture() {
  using Layout = ::Type_LigneCouverture;
  return {L"Type_LigneCouverture",
          sizeof(Layout),
          {
              FIELD(TypeLigne, "BSTR"),
              FIELD(Code, "BSTR"),
              FIELD(Lib, "BSTR"),
              FIELD(Qte, "R8"),
              FIELD(NbDec, "UI1"),
              FIELD(Unite, "BSTR"),
              FIELD(Longueur, "R8"),
              FIELD(Largeur, "R8"),
              FIELD(Hauteur, "R8"),
          }};
}

Record couverture() {
  using Layout = ::Type_Couverture;
  return {L"Type_Couverture",
          sizeof(Layout),
          {
              FIELD(Couverture, "BSTR"),
              FIELD(Condition, "BSTR"),
              FIELD(Exclure, "BOOL"),
              FIELD(Liste, "array of Type_LigneCouverture"),
          }};
}

Record detail_bloc() {
  using Layout = ::DetailBloc;
  return {L"DetailBloc",
          sizeof(Layout),
          {
              FIELD(Nom, "BSTR"),
              FIELD(Hauteur, "I4"),
          }};
}

}  // namespace

std::vector<Record> shared_records() {
  return {ligne_repart_tva(), repart_tva(),       technicien(), adresse_tiers(), preavis_courrier(),
          periodicite(),      ligne_couverture(), couverture(), detail_bloc()};
}

}  // namespace contract
