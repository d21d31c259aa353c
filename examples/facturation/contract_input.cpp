#include <charconv>

#include "dates.h"
#include "file_readers.h"

namespace facturation {
namespace {

constexpr double kMaxAmount = 1e9;

// Pairs "code@percentage@"; the percentages themselves are the library's to read.
void check_repartition(FieldReader& reader, const std::string& text, const TvaInput& tva) {
  constexpr const char* kField = "repartitionTva";
  const auto malformed = [&] {
    reader.refuse(kField, "« " + text + " » n'est pas une répartition (code@pourcentage@...)");
  };
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t first = rest.find('@');
    const std::size_t second = first == rest.npos ? rest.npos : rest.find('@', first + 1);
    if (second == rest.npos) return malformed();
    int code = 0;
    const auto [code_end, code_error] = std::from_chars(rest.data(), rest.data() + first, code);
    if (code_error != std::errc() || code_end != rest.data() + first) return malformed();
    const std::string_view share = rest.substr(first + 1, second - first - 1);
    if (share.empty() || share.find_first_not_of("0123456789.,") != share.npos) return malformed();
    if (!tva.knows(code))
      reader.refuse(kField, "code de TVA " + std::to_string(code) + " absent de " + kTvaFile);
    rest.remove_prefix(second + 1);
  }
}

void read_dates(FieldReader& reader, ContratInput& contrat) {
  contrat.date_debut = reader.date("dateDebut", Need::Required);
  if (reader.has("dateFin")) {
    contrat.date_fin = reader.date("dateFin", Need::Required);
  } else {
    contrat.duree = reader.integer("duree", Need::Required, 1, 3642);
    contrat.unite_duree = static_cast<Unite>(
        reader.choice("uniteDuree", Need::Required, {"jours", "semaines", "mois", "annees"}));
  }
  contrat.facture_jusquau = reader.date("factureJusquau", Need::Optional);
  if (!contrat.date_fin.empty() && !contrat.date_debut.empty() &&
      *parse_day(contrat.date_fin) < *parse_day(contrat.date_debut))
    reader.refuse("dateFin", "la fin du contrat précède son début");
}

void read_amounts(FieldReader& reader, const TvaInput& tva, ContratInput& contrat) {
  constexpr int kMonths[] = {1, 3, 6, 12, 0};
  contrat.mois_par_echeance = kMonths[reader.choice(
      "facturation", Need::Required, {"mensuelle", "trimestrielle", "semestrielle", "annuelle", "unique"})];
  contrat.terme = static_cast<Terme>(reader.choice("terme", Need::Optional, {"debut", "fin"}));
  contrat.tarif = static_cast<Tarif>(reader.choice("tarif", Need::Required, {"HT", "TTC"}));
  contrat.montant_echeance = reader.number("montantEcheance", Need::Required, {0, kMaxAmount});
  contrat.remise = reader.number("remise", Need::Optional, {0, 99.99});
  contrat.repartition_tva = reader.text("repartitionTva", Need::Optional);
  if (contrat.repartition_tva.empty()) {
    contrat.code_tva = read_code_tva(reader, "codeTva", tva);
  } else {
    check_repartition(reader, contrat.repartition_tva, tva);
  }
}

ContratInput read_contrat(FieldReader& reader, const TvaInput& tva) {
  ContratInput contrat;
  contrat.code = reader.text("code", Need::Required);
  contrat.libelle = reader.text("libelle", Need::Required);
  contrat.client = reader.text("client", Need::Required);
  contrat.nom_client = reader.text("nomClient", Need::Required);
  contrat.vendeur = reader.text("vendeur", Need::Optional);
  contrat.mode_reglement = reader.text("modeReglement", Need::Optional);
  contrat.compte = reader.text("compte", Need::Required);
  contrat.libelle_fact = reader.text("libelleFacture", Need::Optional);
  contrat.suspendu = reader.flag("suspendu");
  read_dates(reader, contrat);
  read_amounts(reader, tva, contrat);
  if (const Json* adresse = reader.object("adresse", Need::Required))
    contrat.adresse = read_adresse(reader.inside(*adresse, "adresse."));
  return contrat;
}

void read_sites(FieldReader& reader, ContratInput& contrat) {
  const Json* list = reader.array("sites", Need::Optional);
  if (!list) return;
  for (std::size_t i = 0; i < list->size(); ++i) {
    const std::string prefix = "sites[" + std::to_string(i) + "].";
    const Json& element = (*list)[i];
    if (!element.is_object()) {
      reader.refuse(prefix.substr(0, prefix.size() - 1), "objet attendu");
      continue;
    }
    FieldReader site_reader = reader.inside(element, prefix);
    Site site;
    site.code = site_reader.text("code", Need::Required);
    site.libelle = site_reader.text("libelle", Need::Required);
    if (const Json* adresse = site_reader.object("adresse", Need::Required))
      site.adresse = read_adresse(site_reader.inside(*adresse, "adresse."));
    site_reader.finish();
    contrat.sites.push_back(std::move(site));
  }
}

}  // namespace

void read_contrats(const Json& document, const TvaInput& tva, Problems& problems, Input& input) {
  FieldReader file(document, kContratsFile, "", problems);
  input.date_facturation = file.date("dateFacturation", Need::Optional);
  const std::string roots = file.text("racinesComptes", Need::Optional);
  const Json* list = file.array("contrats", Need::Required);
  file.finish();
  if (!list) return;
  std::set<std::string> codes;
  for_each_object(*list, kContratsFile, "contrat", problems,
                  [&](const Json& element, const std::string& subject) {
                    FieldReader reader(element, kContratsFile, subject, problems);
                    ContratInput contrat = read_contrat(reader, tva);
                    contrat.racines_comptes = roots;
                    read_sites(reader, contrat);
                    if (!contrat.code.empty() && !codes.insert(contrat.code).second)
                      reader.refuse("code", "code déjà présent");
                    if (reader.finish()) input.contrats.push_back(std::move(contrat));
                  });
}

}  // namespace facturation
