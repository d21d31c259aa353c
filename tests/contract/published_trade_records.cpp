// Purchase and sales documents.
#include "contract/published_records.h"

namespace contract {
namespace {

Record infos_app() {
  using Layout = ::Type_InfosApp;
  return {L"Type_InfosApp",
          sizeof(Layout),
          {
              FIELD(CodeApp, "BSTR"),
              FIELD(NumSerie, "BSTR"),
              FIELD(TabCtt, "array of BSTR"),
          }};
}

Record tab_infos_app() {
  using Layout = ::Type_TabInfosApp;
  return {L"Type_TabInfosApp",
          sizeof(Layout),
          {
              FIELD(IndMAx, "I2"),
              FIELD(Info, "array of Type_InfosApp"),
          }};
}

Record infos_repart_mtt() {
  using Layout = ::Type_InfosRepartMtt;
  return {L"Type_InfosRepartMtt",
          sizeof(Layout),
          {
              FIELD(HTContrat, "R8"),
              FIELD(HTInterv, "R8"),
              FIELD(HTService, "R8"),
              FIELD(HTNegoce, "R8"),
              FIELD(PRContrat, "R8"),
              FIELD(PRInterv, "R8"),
              FIELD(PRService, "R8"),
              FIELD(PRNegoce, "R8"),
              FIELD(TVAContrat, "R8"),
              FIELD(TVAInterv, "R8"),
              FIELD(TVAService, "R8"),
              FIELD(TVANegoce, "R8"),
          }};
}

Record infos_tpf() {
  using Layout = ::Type_InfosTPF;
  return {L"Type_InfosTPF",
          sizeof(Layout),
          {
              FIELD(Code, "BSTR"),
              FIELD(Base, "BSTR"),
              FIELD(Valeur, "R8"),
              FIELD(CodeTva, "I2"),
              FIELD(CptVente, "BSTR"),
              FIELD(CptAchat, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(HT, "CY"),
              FIELD(HTNet, "CY"),
          }};
}

Record rens_tpf() {
  using Layout = ::Typ_RensTpf;
  return {L"Typ_RensTpf",
          sizeof(Layout),
          {
              FIELD(CodeTpf, "BSTR"),
              FIELD(CodeTva, "I2"),
              FIELD(TauxTva, "CY"),
              FIELD(BaseTPF, "BSTR"),
              FIELD(ValeurTpf, "CY"),
          }};
}

Record ligne_doc_achat_vente() {
  using Layout = ::Type_LigneDocAchatVente;
  return {L"Type_LigneDocAchatVente",
          sizeof(Layout),
          {
              FIELD(OpCode, "I2"),
              FIELD(Numerotation, "BSTR"),
              FIELD(TypeLigne, "BSTR"),
              FIELD(GestApp, "BOOL"),
              FIELD(Publiable, "BOOL"),
              FIELD(CodeElem, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(Description, "BSTR"),
              FIELD(UniteMes, "BSTR"),
              FIELD(UniteFact, "BSTR"),
              FIELD(Qte, "R8"),
              FIELD(QteHoraire, "R8"),
              FIELD(CodeTva, "I2"),
              FIELD(PA, "CY"),
              FIELD(Frais, "CY"),
              FIELD(Pr, "CY"),
              FIELD(PU, "CY"),
              FIELD(StockCoef, "BOOL"),
              FIELD(CoefFact, "R8"),
              FIELD(Remise, "R8"),
              FIELD(TotalPx, "CY"),
              FIELD(TotalPA, "CY"),
              FIELD(TotalPR, "CY"),
              FIELD(MARGE, "CY"),
              FIELD(TotalFrais, "CY"),
              FIELD(GestStock, "BOOL"),
              FIELD(Valorisation, "BSTR"),
              FIELD(MontantValoris, "R8"),
              FIELD(MvtCompteurArticle, "I4"),
              FIELD(Enregistrement, "BSTR"),
              FIELD(NOrdre, "I4"),
              FIELD(CodeDepot, "BSTR"),
              FIELD(EquivStock, "R8"),
              FIELD(Longueur, "R8"),
              FIELD(Largeur, "R8"),
              FIELD(Hauteur, "R8"),
              FIELD(Poids, "R8"),
              FIELD(PoidsTot, "R8"),
              FIELD(QteParColis, "R8"),
              FIELD(NbColis, "I4"),
              FIELD(Marque, "BSTR"),
              FIELD(Modele, "BSTR"),
              FIELD(Type, "BSTR"),
              FIELD(Puissance, "BSTR"),
              FIELD(DateDoc, "BSTR"),
              FIELD(Provenance, "BSTR"),
              FIELD(CodeDocLien, "BSTR"),
              FIELD(Compte, "BSTR"),
              FIELD(CodeAnalytique, "BSTR"),
              FIELD(TypeVente, "BSTR"),
              FIELD(TPF, "array of Type_InfosTPF"),
              FIELD(TpsForfait, "R8"),
              FIELD(DateLiv, "BSTR"),
              FIELD(QteLiv, "R8"),
              FIELD(Soldee, "BOOL"),
              FIELD(NumLigDocOrig, "I2"),
              FIELD(NumLigDevInt, "I2"),
              FIELD(TabApp, "array of Type_InfosApp"),
              FIELD(NumAutoEch, "I4"),
              FIELD(Niveau, "UI1"),
              FIELD(Etat, "BOOL"),
              FIELD(IndLigParent, "I2"),
              FIELD(MttEcoHT, "CY"),
          }};
}

Record doc_achat_vente() {
  using Layout = ::Type_DocAchatVente;
  return {L"Type_DocAchatVente",
          sizeof(Layout),
          {
              FIELD(TypeDoc, "BSTR"),
              FIELD(TypeDocFinanc, "BSTR"),
              FIELD(Code, "BSTR"),
              FIELD(CodeTiers, "BSTR"),
              FIELD(DateDoc, "BSTR"),
              FIELD(DateLiv, "BSTR"),
              FIELD(Provenance, "BSTR"),
              FIELD(CodeDocLien, "BSTR"),
              FIELD(PieceTrans, "BOOL"),
              FIELD(Destination, "BSTR"),
              FIELD(CodeDocDest, "BSTR"),
              FIELD(Libelle, "BSTR"),
              FIELD(AdrFac, "Type_AdresseTiers"),
              FIELD(AdrLiv, "Type_AdresseTiers"),
              FIELD(CategAV, "BSTR"),
              FIELD(NatureTVA, "BSTR"),
              FIELD(GestionReleve, "BOOL"),
              FIELD(NumeroReleve, "BSTR"),
              FIELD(Monnaie, "BSTR"),
              FIELD(CodeTiersPayeur, "BSTR"),
              FIELD(CodeAnalytique, "BSTR"),
              FIELD(CodeTypeTarif, "BSTR"),
              FIELD(TypeTypTarif, "BSTR"),
              FIELD(CodeDepot, "BSTR"),
              FIELD(CodeVendeur, "BSTR"),
              FIELD(TCorps, "array of Type_LigneDocAchatVente"),
              FIELD(TotalPR, "CY"),
              FIELD(TotalBrut, "CY"),
              FIELD(TotalHTBrut, "CY"),
              FIELD(Remise, "R8"),
              FIELD(MttRemise, "CY"),
              FIELD(Escompte, "R8"),
              FIELD(MttEscompte, "CY"),
              FIELD(TotalHTNet, "CY"),
              FIELD(TotalTTCNet, "CY"),
              FIELD(FraisPortHT, "CY"),
              FIELD(ForceFraisPort, "BOOL"),
              FIELD(CodeTVAPort, "I2"),
              FIELD(FraisPortTTC, "CY"),
              FIELD(SeuilFranco, "CY"),
              FIELD(MttMinCde, "CY"),
              FIELD(FraisFactHT, "CY"),
              FIELD(CodeTVAFraisFact, "I2"),
              FIELD(FraisFactTTC, "CY"),
              FIELD(GestionTPF, "BOOL"),
              FIELD(DetailTPF, "array of Type_InfosTPF"),
              FIELD(TotalTPF, "CY"),
              FIELD(DetailTva, "array of Type_InfosTVA"),
              FIELD(TotalTVA, "CY"),
              FIELD(TotalTTC, "CY"),
              FIELD(Acompte, "CY"),
              FIELD(NetAPayer, "CY"),
              FIELD(EcartRgl, "CY"),
              FIELD(EcartTva, "CY"),
              FIELD(CodeModReg, "BSTR"),
              FIELD(LibModReg, "BSTR"),
              FIELD(Tech, "array of Type_Technicien"),
              FIELD(NbColis, "R8"),
              FIELD(Poids, "R8"),
              FIELD(LettreEntete, "BSTR"),
              FIELD(LettrePied, "BSTR"),
              FIELD(Note, "BSTR"),
              FIELD(Documents, "BSTR"),
              FIELD(CodeTransp, "BSTR"),
              FIELD(EchDsFinanc, "BOOL"),
              FIELD(TransfereComptable, "BOOL"),
              FIELD(PieceEdit, "BOOL"),
              FIELD(CalculTva, "BOOL"),
              FIELD(TypeVente, "BSTR"),
              FIELD(DetailMtt, "Type_InfosRepartMtt"),
              FIELD(IdentDGI, "I4"),
              FIELD(PostePhysiqCreat, "BSTR"),
              FIELD(UtilDroitCreat, "BSTR"),
              FIELD(oTVADoc, "DISPATCH"),
              FIELD(TotalHTEco, "CY"),
              FIELD(TotalTTCEco, "CY"),
          }};
}

Record liste_releve() {
  using Layout = ::Type_ListeReleve;
  return {L"Type_ListeReleve",
          sizeof(Layout),
          {
              FIELD(NumeroReleve, "BSTR"),
              FIELD(NomClient, "BSTR"),
              FIELD(MontantReleve, "R8"),
          }};
}

Record infos_reglement() {
  using Layout = ::InfosReglement;
  return {L"InfosReglement",
          sizeof(Layout),
          {
              FIELD(Type, "BSTR"),
              FIELD(DateE, "BSTR"),
              FIELD(ModeP, "BSTR"),
              FIELD(Montant, "BSTR"),
          }};
}

Record art_financier() {
  using Layout = ::ArtFinancier;
  return {L"ArtFinancier",
          sizeof(Layout),
          {
              FIELD(DerPA, "R8"),
              FIELD(PAMP, "R8"),
              FIELD(Frais, "R8"),
              FIELD(TxFrais, "R8"),
              FIELD(PxRevient, "R8"),
              FIELD(Coeff, "R8"),
              FIELD(PxBaseHT, "R8"),
              FIELD(PxBaseTTC, "R8"),
              FIELD(MARGE, "R8"),
              FIELD(TxMarge, "R8"),
              FIELD(TVA, "R8"),
          }};
}

}  // namespace

std::vector<Record> trade_records() {
  return {infos_app(),       tab_infos_app(),         infos_repart_mtt(), infos_tpf(),
          rens_tpf(),        ligne_doc_achat_vente(), doc_achat_vente(),  liste_releve(),
          infos_reglement(), art_financier()};
}

}  // namespace contract
