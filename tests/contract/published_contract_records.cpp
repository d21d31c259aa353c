// Contracts, their schedules, and statistics.
#include "contract/published_records.h"

namespace contract {
namespace {

Record cadencier_fact() {
  using Layout = ::Type_CadencierFact;
  return {L"Type_CadencierFact",
          sizeof(Layout),
          {
              FIELD(CodeContrat, "BSTR"),
              FIELD(NumEch, "I2"),
              FIELD(Libelle, "BSTR"),
              FIELD(DateDeb, "BSTR"),
              FIELD(DateFin, "BSTR"),
              FIELD(DateFact, "BSTR"),
              FIELD(Vendeur, "BSTR"),
              FIELD(TypeTypTarif, "BSTR"),
              FIELD(MontantHTPrev, "R8"),
              FIELD(MontantTTCPrev, "R8"),
              FIELD(CodeTva, "I2"),
              FIELD(MontantHT, "R8"),
              FIELD(MontantTTC, "R8"),
              FIELD(codeFact, "BSTR"),
              FIELD(Transfere, "BOOL"),
              FIELD(Force, "BOOL"),
              FIELD(ForceTVA, "BOOL"),
              FIELD(NumAuto, "I4"),
              FIELD(RepartTva, "Type_RepartTVA"),
          }};
}

Record cadencier_interv() {
  using Layout = ::Type_CadencierInterv;
  return {L"Type_CadencierInterv",
          sizeof(Layout),
          {
              FIELD(CodeContrat, "BSTR"),
              FIELD(CodeSite, "BSTR"),
              FIELD(NomSite, "BSTR"),
              FIELD(NumInterv, "I2"),
              FIELD(Libelle, "BSTR"),
              FIELD(DateIntPrev, "BSTR"),
              FIELD(DateInt, "BSTR"),
              FIELD(Heure, "BSTR"),
              FIELD(Duree, "R8"),
              FIELD(DateCour, "BSTR"),
              FIELD(CodeBon, "BSTR"),
              FIELD(CodeDde, "BSTR"),
              FIELD(Situation, "BSTR"),
              FIELD(NumAuto, "I4"),
              FIELD(CourrierEdit, "BOOL"),
          }};
}

Record elem_pr() {
  using Layout = ::Type_ElemPR;
  return {L"Type_ElemPR",
          sizeof(Layout),
          {
              FIELD(TypeLigne, "BSTR"),
              FIELD(Code, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(Qte, "R8"),
              FIELD(UniteMes, "BSTR"),
              FIELD(PRUnit, "R8"),
              FIELD(PRTot, "R8"),
              FIELD(Long, "R8"),
              FIELD(Larg, "R8"),
              FIELD(Haut, "R8"),
          }};
}

Record garantie() {
  using Layout = ::Type_Garantie;
  return {L"Type_Garantie",
          sizeof(Layout),
          {
              FIELD(CodeElem, "BSTR"),
              FIELD(NumSerie, "BSTR"),
              FIELD(DateDeb, "BSTR"),
              FIELD(DateFin, "BSTR"),
              FIELD(Duree, "I2"),
              FIELD(UnitDuree, "BSTR"),
              FIELD(Couverture, "Type_Couverture"),
              FIELD(Preavis, "Type_PreavisCourrier"),
              FIELD(CourrierEdite, "BOOL"),
              FIELD(Informations, "BSTR"),
          }};
}

Record contrat() {
  using Layout = ::Type_Contrat;
  return {L"Type_Contrat",
          sizeof(Layout),
          {
              FIELD(Code, "BSTR"),
              FIELD(TypeDoc, "BSTR"),
              FIELD(Etat, "BSTR"),
              FIELD(Motif, "BSTR"),
              FIELD(CodeContratType, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(Descriptif, "BSTR"),
              FIELD(CodeFam, "BSTR"),
              FIELD(DateSous, "BSTR"),
              FIELD(DateDeb, "BSTR"),
              FIELD(Duree, "I2"),
              FIELD(DateFin, "BSTR"),
              FIELD(UnitDuree, "BSTR"),
              FIELD(ModRecond, "BSTR"),
              FIELD(IndiceMaj, "BSTR"),
              FIELD(PreavisD, "Type_PreavisCourrier"),
              FIELD(Preavis, "Type_PreavisCourrier"),
              FIELD(CodeClient, "BSTR"),
              FIELD(Vendeur, "BSTR"),
              FIELD(Edite, "BOOL"),
              FIELD(Note, "BSTR"),
              FIELD(Documents, "BSTR"),
              FIELD(Kilometrage, "I4"),
              FIELD(CodeZoneInt, "BSTR"),
              FIELD(DurMaxAppel, "R8"),
              FIELD(DurConsAppel, "R8"),
              FIELD(NbMaxAppel, "I2"),
              FIELD(NbConsAppel, "I2"),
              FIELD(TabGarant, "array of Type_Garantie"),
              FIELD(TabInterv, "array of Type_Intervention"),
              FIELD(TabCadInterv, "array of Type_CadencierInterv"),
              FIELD(Unique, "BOOL"),
              FIELD(Compte, "BSTR"),
              FIELD(LibelleFact, "BSTR"),
              FIELD(TypeTypTarif, "BSTR"),
              FIELD(PREstime, "R8"),
              FIELD(MontantHTBrut, "R8"),
              FIELD(MontantTTCBrut, "R8"),
              FIELD(Remise, "R8"),
              FIELD(MontantHT, "R8"),
              FIELD(CodeTva, "I2"),
              FIELD(RepartTva, "Type_RepartTVA"),
              FIELD(MontantTTC, "R8"),
              FIELD(DatePrem, "BSTR"),
              FIELD(CodePeriodicite, "BSTR"),
              FIELD(Periodicite, "Type_Periodicite"),
              FIELD(Adr, "Type_AdresseTiers"),
              FIELD(TabElemPR, "array of Type_ElemPR"),
              FIELD(TabCadFact, "array of Type_CadencierFact"),
              FIELD(Terme, "BSTR"),
              FIELD(NbTerme, "I2"),
              FIELD(NbEch, "I2"),
              FIELD(MontantEchFact, "R8"),
              FIELD(RepartAmtSetting, "RepartAmtSet"),
              FIELD(PaymentSetting, "PaymentSet"),
              FIELD(ModeCalc, "BOOL"),
              FIELD(ModReg, "BSTR"),
              FIELD(CodePeriodEch, "BSTR"),
              FIELD(PeriodEch, "Type_Periodicite"),
              FIELD(Paiement, "BSTR"),
              FIELD(Tech, "array of Type_Technicien"),
              FIELD(Provenance, "BSTR"),
              FIELD(CodeDocLien, "BSTR"),
              FIELD(DerRec, "BSTR"),
              FIELD(DerMaj, "BSTR"),
              FIELD(NumParam, "BSTR"),
              FIELD(TVAReduiteValide, "BOOL"),
          }};
}

Record stats() {
  using Layout = ::Type_Stats;
  return {L"Type_Stats",
          sizeof(Layout),
          {
              FIELD(TotalCA, "R8"),          FIELD(TotalMarge, "R8"),        FIELD(TotalPR, "R8"),
              FIELD(TotalQte, "R8"),         FIELD(StatsFourn, "BOOL"),      FIELD(TotalCANegoce, "R8"),
              FIELD(TotalMargeNegoce, "R8"), FIELD(TotalPRNegoce, "R8"),     FIELD(TotalQteNegoce, "R8"),
              FIELD(TotalCAService, "R8"),   FIELD(TotalMargeService, "R8"), FIELD(TotalPRService, "R8"),
              FIELD(TotalQteService, "R8"),  FIELD(NbIntSsCtt, "I2"),        FIELD(NbIntSsGar, "I2"),
              FIELD(NbIntIndep, "I2"),       FIELD(NbIntTot, "I2"),          FIELD(TotalDureeInt, "R8"),
              FIELD(TotalDureeDepl, "R8"),   FIELD(TotalQuantite, "R8"),
          }};
}

}  // namespace

std::vector<Record> contract_records() {
  return {cadencier_fact(), cadencier_interv(), elem_pr(), garantie(), contrat(), stats()};
}

}  // namespace contract
