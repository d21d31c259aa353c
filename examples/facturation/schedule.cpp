#include "schedule.h"

#include "address.h"
#include "dates.h"

namespace facturation {
namespace {

void assign_site(Type_Intervention& record, const Site& site, const ContratInput& contrat, short number) {
  record.NumInterv = number;
  assign(record.Libelle, site.libelle);
  assign(record.CodeClient, contrat.client);
  assign(record.CodeSite, site.code);
  assign(record.NomSite, site.adresse.nom_site);
  assign(record.Interloc, site.adresse.interlocuteur);
  assign(record.Adr, site.adresse.adresse);
  assign(record.AdrSuite, site.adresse.complement);
  assign(record.CP, site.adresse.code_postal);
  assign(record.Ville, site.adresse.ville);
  assign(record.Tel, site.adresse.telephone);
  assign(record.Fax, site.adresse.telecopie);
  assign(record.Mobile, site.adresse.mobile);
  assign(record.EMail, site.adresse.email);
}

void fill(Type_Contrat& record, const ContratInput& input, const Codes& codes) {
  assign(record.Code, input.code);
  assign(record.TypeDoc, codes.contrat.view());
  assign(record.Libelle, input.libelle);
  assign(record.CodeClient, input.client);
  assign(record.Vendeur, input.vendeur);
  assign(record.ModReg, input.mode_reglement);
  assign(record.Compte, input.compte);
  assign(record.LibelleFact, input.libelle_fact);
  assign(record.DateDeb, input.date_debut);
  assign(record.TypeTypTarif, codes.tarif(input.tarif).view());
  record.Duree = static_cast<short>(input.duree);
  if (input.duree) assign(record.UnitDuree, codes.unit(input.unite_duree).view());
  record.Remise = input.remise;
  record.MontantEchFact = input.montant_echeance;
  assign_address(record.Adr, input.adresse);

  // The invoice header reads the first intervention: without sites, one without label stands there.
  const std::size_t count = input.sites.empty() ? 1 : input.sites.size();
  record.TabInterv = new_array<Type_Intervention>(count);
  const auto interventions = elements<Type_Intervention>(record.TabInterv);
  for (std::size_t i = 0; i < input.sites.size(); ++i)
    assign_site(interventions[i], input.sites[i], input, static_cast<short>(i));
}

void set_end(Type_Contrat& record, const ContratInput& input, Library& library) {
  if (!input.date_fin.empty()) {
    assign(record.DateFin, input.date_fin);
    return;
  }
  const Text end =
      library.end_of_period(record.DateDeb, input.duree, library.codes().unit(input.unite_duree));
  const auto start_day = platform_day(record.DateDeb);
  const auto end_day = platform_day(end.get());
  if (!start_day || !end_day || *end_day < *start_day)
    throw Refusal("duree", "la fin calculée, " + to_utf8(end.view()) +
                               ", est relue avant le début (année sur deux chiffres)");
  assign(record.DateFin, end.view());
}

void set_distribution(Type_Contrat& record, const ContratInput& input, Library& library, VatTable& table) {
  auto code = static_cast<short>(input.code_tva);
  library.read_distribution(&table, code, Text(input.repartition_tva), record.RepartTva);
  record.CodeTva = code;
  for (const Type_LigneRepartTVA& share : record.RepartTva.Lignes) {
    if (share.Pourcent < 0 || share.Pourcent > 100)
      throw Refusal("repartitionTva", "les parts ne forment pas un total de 100 %");
  }
}

/// What the library itself says of the input.
void check_input(const ContratInput& input, Library& library) {
  constexpr const wchar_t* kAmountFormat = L"N;7.2;>0;B";
  if (!library.fits(kAmountFormat, input.montant_echeance))
    throw Refusal("montantEcheance", "montant hors du format de saisie 7.2");
  if (!input.racines_comptes.empty() && !library.has_root(Text(input.compte), Text(input.racines_comptes)))
    throw Refusal("compte",
                  "« " + input.compte + " » ne commence par aucune des racines " + input.racines_comptes);
}

/// The billing rule: on the day of the contract's start, every so many months; nothing for a single
/// instalment.
void set_rule(Type_Contrat& record, const ContratInput& input, Library& library) {
  if (!input.mois_par_echeance) return;
  const std::optional<DATE> start = platform_day(record.DateDeb);
  SYSTEMTIME day{};
  if (!start || !VariantTimeToSystemTime(*start, &day))
    throw Refusal("dateDebut", "date que la bibliothèque ne lit pas");
  Type_Periodicite& rule = record.Periodicite;
  rule.VersionType = 1;
  rule.Chaque = static_cast<short>(day.wDay);
  const bool yearly = input.mois_par_echeance == 12;
  assign(rule.Periodicite, yearly ? library.codes().annuel.view() : library.codes().mensuel.view());
  rule.TousLes = static_cast<short>(yearly ? 1 : input.mois_par_echeance);
  if (yearly) assign(rule.Mois, library.month_key(static_cast<short>(day.wMonth)).view());
  assign(rule.Libelle, library.rule_label(rule).view());
}

/// Last day of the period that starts on `start`; the contract's end when there is one instalment.
Text period_end(Type_Contrat& record, BSTR start, const ContratInput& input, Library& library) {
  if (!input.mois_par_echeance) return Text(std::wstring_view(record.DateFin));
  if (input.mois_par_echeance == 12) return library.end_of_period(start, 1, library.codes().annee);
  return library.end_before(library.next_month(start, record.Periodicite).get());
}

void add_rows(Type_Contrat& record, const ContratInput& input, Library& library) {
  const std::optional<DATE> last_day = platform_day(record.DateFin);
  if (!last_day) throw Refusal("dateFin", "date que la bibliothèque ne lit pas");
  Text start(std::wstring_view(record.DateDeb));
  for (std::optional<DATE> day = platform_day(start.get()); day && *day <= *last_day;
       day = platform_day(start.get())) {
    const Text end = period_end(record, start.get(), input, library);
    const BSTR due = input.terme == Terme::Debut ? start.get() : end.get();
    const short expected = record.NbEch;
    if (expected >= library.codes().max_instalments)
      throw Refusal("facturation", "plus de " + std::to_string(expected) + " échéances");
    const short index = library.add_instalment(record, due, start.get(), end.get());
    const auto rows = elements<Type_CadencierFact>(record.TabCadFact);
    if (index != expected || rows.size() != static_cast<std::size_t>(index) + 1)
      throw ComFailure("AjouterCadFactCtt : échéance rangée à un indice inattendu");
    record.NbEch = static_cast<short>(index + 1);

    Type_CadencierFact& row = rows.back();
    if (input.terme == Terme::Fin) assign(row.DateFact, std::wstring_view(row.DateFin));
    Text next = library.start_after(row.DateFin);
    const auto next_day = platform_day(next.get());
    if (!next_day || *next_day <= *day)
      throw Refusal("dateFin", "les dates à deux chiffres de l'échéancier changent de siècle");
    start = std::move(next);
  }
}

void set_amounts(Type_CadencierFact& row, const ContratInput& input, Library& library, VatTable& table) {
  const double pivot = library.rounded(input.montant_echeance);
  const double other = library.spread(&table, row.RepartTva, pivot, library.codes().tarif(input.tarif));
  row.MontantHT = input.tarif == Tarif::Ht ? pivot : other;
  row.MontantTTC = input.tarif == Tarif::Ht ? other : pivot;
  row.MontantHTPrev = row.MontantHT;
  row.MontantTTCPrev = row.MontantTTC;
  const Totals totals = totals_of(row, input.tarif);
  if (!same_amount(totals.ht, row.MontantHT) || !same_amount(totals.ttc, row.MontantTTC))
    throw ComFailure("GetAmountByRepartTVA : les parts ne font pas le montant de l'échéance");
}

void set_totals(Type_Contrat& record, const ContratInput& input, Library& library, VatTable& table) {
  double ht = 0;
  double ttc = 0;
  library.total_schedule(record, ht, ttc);
  record.MontantHT = ht;
  record.MontantTTC = ttc;
  library.set_pivot_from_schedule(record);
  if (!same_amount(record.MontantHT, ht) || !same_amount(record.MontantTTC, ttc))
    throw ComFailure("CalculSommeMtt : total différent de celui de l'échéancier");
  library.set_gross_amounts(record);
  const double pivot = input.tarif == Tarif::Ht ? ht : ttc;
  library.spread(&table, record.RepartTva, pivot, library.codes().tarif(input.tarif));
}

}  // namespace

std::unique_ptr<ContractDocument> build_contract(ContratInput input, Library& library, VatTable& table,
                                                 long& next_key) {
  auto document = std::make_unique<ContractDocument>();
  document->input = std::move(input);
  const ContratInput& source = document->input;
  Type_Contrat& record = document->record;
  fill(record, source, library.codes());
  set_end(record, source, library);
  check_input(source, library);
  set_distribution(record, source, library, table);
  set_rule(record, source, library);
  add_rows(record, source, library);

  const auto rows = elements<Type_CadencierFact>(record.TabCadFact);
  if (library.instalment_count(record) != static_cast<short>(rows.size()))
    throw ComFailure("NbrCadFact : nombre d'échéances inattendu");
  const std::optional<DATE> invoiced = parse_day(source.facture_jusquau);
  if (!rows.empty()) assign(record.DatePrem, std::wstring_view(rows.front().DateFact));
  for (Type_CadencierFact& row : rows) {
    row.NumAuto = next_key++;
    set_amounts(row, source, library, table);
    if (invoiced && platform_day(row.DateFin) <= invoiced) row.Transfere = VARIANT_TRUE;
  }
  set_totals(record, source, library, table);
  return document;
}

Totals totals_of(const Type_CadencierFact& row, Tarif tarif) {
  Totals totals;
  for (const Type_LigneRepartTVA& share : row.RepartTva.Lignes) {
    totals.tva += share.MontantTVA;
    totals.ht += tarif == Tarif::Ht ? share.MontantBase : share.MontantBase - share.MontantTVA;
    totals.ttc += tarif == Tarif::Ht ? share.MontantBase + share.MontantTVA : share.MontantBase;
  }
  return totals;
}

}  // namespace facturation
