#include "work_orders.h"

#include <map>

#include "address.h"

namespace facturation {

const wchar_t* const kSituationFacture = L"F";

namespace {

constexpr const wchar_t* kSituationPrisEnCharge = L"C";
constexpr const wchar_t* kTypeArticle = L"A";

CURRENCY currency(double amount) {
  CURRENCY value{};
  if (FAILED(VarCyFromR8(amount, &value))) throw ComFailure("montant hors limites");
  return value;
}

void fill_article(Type_LigneArticle& record, const ArticleInput& article, double total, const Codes& codes) {
  assign(record.TypeLigne, article.texte ? codes.ligne_texte.view() : std::wstring_view(kTypeArticle));
  assign(record.Libelle, article.libelle);
  if (article.texte) return;
  assign(record.CodeArt, article.code);
  assign(record.Situation,
         std::wstring_view(article.pris_en_charge ? kSituationPrisEnCharge : kSituationFacture));
  assign(record.Valorisation, article.valorisation);
  assign(record.UniteMes, article.unite);
  record.Qte = article.quantite;
  record.Pr = currency(article.prix_revient);
  record.PrixUnit = currency(article.prix_unitaire);
  record.Remise = article.remise;
  record.TotalPR = currency(article.quantite * article.prix_revient);
  record.PrixTot = currency(total);
  record.CodeTva = static_cast<short>(article.code_tva);
  record.EquivStock = article.equivalence_stock;
  record.PVFixe = article.prix_fixe ? VARIANT_TRUE : VARIANT_FALSE;
}

/// Technicians with their slots; returns each one's name and time.
std::vector<TimeSpent> fill_technicians(Type_Bon& record, const InterventionInput& input, Library& library) {
  std::vector<TimeSpent> times;
  if (input.techniciens.empty()) return times;
  record.TabTech = new_array<Type_LigneRessource>(input.techniciens.size());
  const auto technicians = elements<Type_LigneRessource>(record.TabTech);
  for (std::size_t i = 0; i < technicians.size(); ++i) {
    const TechnicienInput& source = input.techniciens[i];
    Type_LigneRessource& technician = technicians[i];
    technician.Code = static_cast<short>(source.code);
    technician.Responsable = i == 0 ? VARIANT_TRUE : VARIANT_FALSE;
    assign(technician.Nom, source.nom);
    technician.TabPlage = new_array<Type_BarTime>(source.plages.size());
    const auto slots = elements<Type_BarTime>(technician.TabPlage);
    for (std::size_t k = 0; k < slots.size(); ++k) {
      assign(slots[k].DateDeb, input.date);
      assign(slots[k].DateFin, input.date);
      assign(slots[k].HeureDebut, source.plages[k].debut);
      assign(slots[k].HeureFin, source.plages[k].fin);
    }
    times.push_back({source.nom, to_utf8(library.time_spent(technician).view())});
  }
  return times;
}

// VAT is due on the total under each code, not line by line.
Totals totals_of(const std::map<int, double>& bases, Tarif tarif, Library& library, VatTable& table) {
  Totals totals;
  for (const auto& [code, base] : bases) {
    const double rate = table.rate(code);
    const double vat = library.vat_of(rate, base, library.codes().tarif(tarif));
    const bool before_tax = tarif == Tarif::Ht;
    const double other = before_tax ? library.ttc_of_ht(rate, base) : library.ht_of_ttc(rate, base);
    const double ht = before_tax ? base : other;
    const double ttc = before_tax ? other : base;
    if (!same_amount(ht + vat, ttc))
      throw ComFailure("DLL_GetAmountTVA : la TVA n'est pas l'écart du HT au TTC");
    totals += {ht, vat, ttc};
  }
  return totals;
}

}  // namespace

std::unique_ptr<WorkOrderDocument> build_work_order(InterventionInput input, Library& library,
                                                    VatTable& table) {
  auto document = std::make_unique<WorkOrderDocument>();
  document->input = std::move(input);
  document->format_tva = table.format();
  const InterventionInput& source = document->input;
  Type_Bon& record = document->record;
  assign(record.Code, source.code);
  assign(record.Libelle, source.libelle);
  assign(record.CodeClient, source.client);
  assign(record.CodeContrat, source.contrat);
  assign(record.DateDeb, source.date);
  assign(record.DateFin, source.date);
  assign(record.DateEff, source.date);
  record.IntervSsCadre = source.contrat.empty() ? VARIANT_TRUE : VARIANT_FALSE;
  assign_address(record.Adr, source.site);
  assign_address(document->facturation, source.facturation);

  document->time_spent = fill_technicians(record, source, library);

  record.TabArticle = new_array<Type_LigneArticle>(source.articles.size());
  const auto articles = elements<Type_LigneArticle>(record.TabArticle);
  std::map<int, double> bases;
  for (std::size_t i = 0; i < articles.size(); ++i) {
    const ArticleInput& article = source.articles[i];
    const double total =
        library.rounded(article.quantite * article.prix_unitaire * (1 - article.remise / 100));
    fill_article(articles[i], article, total, library.codes());
    if (article.texte || article.pris_en_charge) continue;
    bases[article.code_tva] += total;
    document->has_invoiced_articles = true;
  }
  document->totals = totals_of(bases, source.tarif, library, table);
  record.TotalHT = document->totals.ht;
  record.TotalTVA = document->totals.tva;
  record.TotalTTC = document->totals.ttc;
  return document;
}

}  // namespace facturation
