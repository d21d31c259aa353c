#include "records.h"

#include <cstring>
#include <utility>

#include "com_support.h"

namespace facturation {
namespace {

template <class... Fields>
void free_texts(Fields&... fields) {
  (SysFreeString(std::exchange(fields, nullptr)), ...);
}

void clear(Type_RepartTVA& r) {
  for (Type_LigneRepartTVA& line : r.Lignes) free_texts(line.Compte, line.CompteEnc);
  free_texts(r.FormatTVA, r.FormatTVANonMulti);
}

void clear(Type_AdresseTiers& r) {
  free_texts(r.NomSite, r.Interloc, r.Civilite, r.Tel, r.Fax, r.Mobile, r.Adr, r.AdrSuite, r.CP, r.Ville,
             r.Pays, r.EMail, r.Internet, r.Qualite, r.ZoneInt, r.comment);
  if (r.RubSup) SafeArrayDestroy(std::exchange(r.RubSup, nullptr));
}

void clear(Type_Periodicite& r) { free_texts(r.Libelle, r.Periodicite, r.Le, r.Jour, r.Mois); }

void clear(Type_CadencierFact& r) {
  free_texts(r.CodeContrat, r.Libelle, r.DateDeb, r.DateFin, r.DateFact, r.Vendeur, r.TypeTypTarif,
             r.codeFact);
  clear(r.RepartTva);
}

void clear(Type_Intervention& r) {
  free_texts(r.Code, r.CodeIntervType, r.Libelle, r.LibCourt, r.Descriptif, r.CodeFam, r.Categorie,
             r.Materiel, r.Note, r.Rapport, r.Preavis.Unite, r.CodePeriodicite, r.DatePrem, r.DateFin,
             r.CodeClient, r.CodeSite, r.NomSite, r.Adr, r.AdrSuite, r.CP, r.Ville, r.Pays, r.Interloc, r.Tel,
             r.Fax, r.Mobile, r.EMail, r.Couverture.Couverture, r.Couverture.Condition, r.Heure,
             r.CodeEquipe);
  clear(r.Periodicite);
}

void clear(Type_LigneArticle& r) {
  free_texts(r.TypeLigne, r.CodeArt, r.Libelle, r.Situation, r.CodeDepot, r.Valorisation, r.UniteMes,
             r.CodeArtApp, r.NumSerApp, r.CodeCtt, r.LibCtt, r.Raison);
}

void clear(Type_BarTime& r) {
  free_texts(r.CodeDoc, r.DateDeb, r.HeureDebut, r.DateFin, r.HeureFin, r.Libelle, r.Resume, r.Descriptif,
             r.DateModif, r.DateCreation);
}

void clear(Type_LigneRessource& r);

// The array must no longer look like one of records when it is destroyed: the platform would clear its
// elements a second time, in its own way.
template <class Record>
void destroy(SAFEARRAY*& array) {
  if (!array) return;
  const std::span all(static_cast<Record*>(array->pvData), array->rgsabound[0].cElements);
  for (Record& element : all) clear(element);
  if (array->fFeatures & FADF_RECORD) {
    SafeArraySetRecordInfo(array, nullptr);
    array->fFeatures = static_cast<USHORT>(array->fFeatures & ~FADF_RECORD);
  }
  SafeArrayDestroy(std::exchange(array, nullptr));
}

void clear(Type_LigneRessource& r) {
  free_texts(r.Nom);
  destroy<Type_BarTime>(r.TabPlage);
}

}  // namespace

Contrat::~Contrat() {
  free_texts(Code, TypeDoc, Etat, Motif, CodeContratType, Libelle, Descriptif, CodeFam, DateSous, DateDeb,
             DateFin, UnitDuree, ModRecond, IndiceMaj, PreavisD.Unite, Preavis.Unite, CodeClient, Vendeur,
             Note, Documents, CodeZoneInt, Compte, LibelleFact, TypeTypTarif, DatePrem, CodePeriodicite,
             Terme, ModReg, CodePeriodEch, Paiement, Provenance, CodeDocLien, DerRec, DerMaj, NumParam);
  clear(RepartTva);
  clear(Periodicite);
  clear(PeriodEch);
  clear(Adr);
  destroy<Type_Intervention>(TabInterv);
  destroy<Type_CadencierFact>(TabCadFact);
}

Bon::~Bon() {
  free_texts(Code, Etat, EtatFact, CodeClient, CodeContrat, CodeIntervType, DateEff, DatePrev, Importance,
             Provenance, Symptome, DateDeb, HeureDeb, DateFin, HeureFin, Equipe, Libelle, Descriptif,
             Materiel, Note, Documents, CodeDocLien, TypeDocLien, CodeFacture, CodeDepot, Rapport);
  clear(Adr);
  destroy<Type_LigneRessource>(TabTech);
  destroy<Type_LigneArticle>(TabArticle);
}

AdresseTiers::~AdresseTiers() { clear(*this); }

void assign(BSTR& field, std::wstring_view text) {
  Text copy(text);
  SysFreeString(field);
  field = copy.release();
}

void assign(BSTR& field, std::string_view utf8) { assign(field, std::wstring_view(to_utf16(utf8))); }

SAFEARRAY* new_array(std::size_t element_size, std::size_t count) {
  SAFEARRAY* array = nullptr;
  if (FAILED(SafeArrayAllocDescriptor(1, &array))) throw std::bad_alloc();
  array->cbElements = static_cast<ULONG>(element_size);
  array->rgsabound[0] = {static_cast<ULONG>(count), 0};
  if (FAILED(SafeArrayAllocData(array))) {
    SafeArrayDestroyDescriptor(array);
    throw std::bad_alloc();
  }
  std::memset(array->pvData, 0, element_size * count);
  return array;
}

}  // namespace facturation
