// Interventions and work orders.
#include "contract/published_records.h"

namespace contract {
namespace {

Record intervention() {
  using Layout = ::Type_Intervention;
  return {L"Type_Intervention",
          sizeof(Layout),
          {
              FIELD(Code, "BSTR"),
              FIELD(CodeIntervType, "BSTR"),
              FIELD(NumInterv, "I2"),
              FIELD(NumIntervBase, "I2"),
              FIELD(Libelle, "BSTR"),
              FIELD(LibCourt, "BSTR"),
              FIELD(Descriptif, "BSTR"),
              FIELD(CodeFam, "BSTR"),
              FIELD(Categorie, "BSTR"),
              FIELD(Duree, "R8"),
              FIELD(Materiel, "BSTR"),
              FIELD(Note, "BSTR"),
              FIELD(Rapport, "BSTR"),
              FIELD(Preavis, "Type_PreavisCourrier"),
              FIELD(CodePeriodicite, "BSTR"),
              FIELD(Periodicite, "Type_Periodicite"),
              FIELD(DatePrem, "BSTR"),
              FIELD(DateFin, "BSTR"),
              FIELD(TabAppareil, "array of DISPATCH"),
              FIELD(CodeClient, "BSTR"),
              FIELD(CodeSite, "BSTR"),
              FIELD(NomSite, "BSTR"),
              FIELD(Adr, "BSTR"),
              FIELD(AdrSuite, "BSTR"),
              FIELD(CP, "BSTR"),
              FIELD(Ville, "BSTR"),
              FIELD(Pays, "BSTR"),
              FIELD(Interloc, "BSTR"),
              FIELD(Tel, "BSTR"),
              FIELD(Fax, "BSTR"),
              FIELD(Mobile, "BSTR"),
              FIELD(EMail, "BSTR"),
              FIELD(Couverture, "Type_Couverture"),
              FIELD(MAJCoordAuto, "BOOL"),
              FIELD(TypeCadre, "BOOL"),
              FIELD(NbMaxInt, "I2"),
              FIELD(NbConsInt, "I2"),
              FIELD(DurMaxInt, "R8"),
              FIELD(DurConsInt, "R8"),
              FIELD(Heure, "BSTR"),
              FIELD(CodeEquipe, "BSTR"),
              FIELD(TabRes, "array of BSTR"),
          }};
}

Record bar_time() {
  using Layout = ::Type_BarTime;
  return {L"Type_BarTime",
          sizeof(Layout),
          {
              FIELD(CodeRess, "I2"),
              FIELD(CodeDoc, "BSTR"),
              FIELD(DateDeb, "BSTR"),
              FIELD(HeureDebut, "BSTR"),
              FIELD(DateFin, "BSTR"),
              FIELD(HeureFin, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(Resume, "BSTR"),
              FIELD(Descriptif, "BSTR"),
              FIELD(OpCode, "I2"),
              FIELD(NumAuto, "I4"),
              FIELD(DateModif, "BSTR"),
              FIELD(DateCreation, "BSTR"),
          }};
}

Record ligne_ressource() {
  using Layout = ::Type_LigneRessource;
  return {L"Type_LigneRessource",
          sizeof(Layout),
          {
              FIELD(Code, "I2"),
              FIELD(Nom, "BSTR"),
              FIELD(Responsable, "BOOL"),
              FIELD(TabPlage, "array of Type_BarTime"),
          }};
}

Record ligne_article() {
  using Layout = ::Type_LigneArticle;
  return {L"Type_LigneArticle",
          sizeof(Layout),
          {
              FIELD(TypeLigne, "BSTR"),
              FIELD(CodeArt, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(Qte, "R8"),
              FIELD(Pr, "CY"),
              FIELD(PrixUnit, "CY"),
              FIELD(Remise, "R8"),
              FIELD(Situation, "BSTR"),
              FIELD(TotalPR, "CY"),
              FIELD(PrixTot, "CY"),
              FIELD(CodeTva, "I2"),
              FIELD(CodeDepot, "BSTR"),
              FIELD(Valorisation, "BSTR"),
              FIELD(MontantValoris, "CY"),
              FIELD(UniteMes, "BSTR"),
              FIELD(EquivStock, "R8"),
              FIELD(PVFixe, "BOOL"),
              FIELD(CodeArtApp, "BSTR"),
              FIELD(NumSerApp, "BSTR"),
              FIELD(CodeCtt, "BSTR"),
              FIELD(LibCtt, "BSTR"),
              FIELD(Raison, "BSTR"),
          }};
}

Record infos_tva() {
  using Layout = ::Type_InfosTVA;
  return {L"Type_InfosTVA",
          sizeof(Layout),
          {
              FIELD(HT, "CY"),
              FIELD(HTEco, "CY"),
              FIELD(HTNet, "CY"),
              FIELD(Taux, "CY"),
              FIELD(MttTVA, "CY"),
              FIELD(MttTVANet, "CY"),
              FIELD(CptAch, "BSTR"),
              FIELD(CptVen, "BSTR"),
          }};
}

Record bon() {
  using Layout = ::Type_Bon;
  return {L"Type_Bon",
          sizeof(Layout),
          {
              FIELD(Code, "BSTR"),
              FIELD(Etat, "BSTR"),
              FIELD(EtatFact, "BSTR"),
              FIELD(CodeClient, "BSTR"),
              FIELD(ClientExport, "BOOL"),
              FIELD(CodeContrat, "BSTR"),
              FIELD(NumInterv, "I2"),
              FIELD(CodeIntervType, "BSTR"),
              FIELD(DateEff, "BSTR"),
              FIELD(DatePrev, "BSTR"),
              FIELD(Importance, "BSTR"),
              FIELD(Provenance, "BSTR"),
              FIELD(Adr, "Type_AdresseTiers"),
              FIELD(TabAppareil, "array of DISPATCH"),
              FIELD(Symptome, "BSTR"),
              FIELD(DureeInt, "R8"),
              FIELD(DateDeb, "BSTR"),
              FIELD(HeureDeb, "BSTR"),
              FIELD(DateFin, "BSTR"),
              FIELD(HeureFin, "BSTR"),
              FIELD(NbHrPrev, "R8"),
              FIELD(NbHrReal, "R8"),
              FIELD(Equipe, "BSTR"),
              FIELD(TabTech, "array of Type_LigneRessource"),
              FIELD(Libelle, "BSTR"),
              FIELD(Descriptif, "BSTR"),
              FIELD(Materiel, "BSTR"),
              FIELD(Note, "BSTR"),
              FIELD(Documents, "BSTR"),
              FIELD(TabArticle, "array of Type_LigneArticle"),
              FIELD(CodeDocLien, "BSTR"),
              FIELD(TypeDocLien, "BSTR"),
              FIELD(CodeFacture, "BSTR"),
              FIELD(CodeDepot, "BSTR"),
              FIELD(DetailTva, "array of Type_InfosTVA"),
              FIELD(TotalHT, "R8"),
              FIELD(TotalTVA, "R8"),
              FIELD(TotalTTC, "R8"),
              FIELD(TotalPR, "R8"),
              FIELD(IntervSsCadre, "BOOL"),
              FIELD(Rapport, "BSTR"),
              FIELD(oTVADoc, "DISPATCH"),
          }};
}

}  // namespace

std::vector<Record> work_order_records() {
  return {intervention(), bar_time(), ligne_ressource(), ligne_article(), infos_tva(), bon()};
}

}  // namespace contract
