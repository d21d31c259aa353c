#include "file_readers.h"

namespace facturation {
namespace {

constexpr double kMaxAmount = 1e9;

ArticleInput read_article(FieldReader reader, const TvaInput& tva) {
  ArticleInput article;
  article.texte = reader.choice("type", Need::Optional, {"article", "texte"}) == 1;
  article.libelle = reader.text("libelle", Need::Required);
  if (!article.texte) {
    article.code = reader.text("code", Need::Required);
    article.quantite = reader.number("quantite", Need::Required, {0, 1e6});
    article.prix_revient = reader.number("prixRevient", Need::Optional, {0, kMaxAmount});
    article.prix_unitaire = reader.number("prixUnitaire", Need::Required, {0, kMaxAmount});
    article.remise = reader.number("remise", Need::Optional, {0, 100});
    article.equivalence_stock = reader.number("equivalenceStock", Need::Optional, {0, 1e6}, 1);
    article.unite = reader.text("unite", Need::Optional);
    article.valorisation = reader.text("valorisation", Need::Optional);
    article.prix_fixe = reader.flag("prixFixe");
    article.pris_en_charge = reader.flag("prisEnCharge");
    article.code_tva = read_code_tva(reader, "codeTva", tva);
  }
  reader.finish();
  return article;
}

bool is_time(const std::string& text) {
  if (text.size() != 5 || text[2] != ':') return false;
  for (const std::size_t place : {0, 1, 3, 4}) {
    if (text[place] < '0' || text[place] > '9') return false;
  }
  return text.substr(0, 2) < "24" && text.substr(3) < "60";
}

std::string read_time(FieldReader& reader, const char* field) {
  std::string text = reader.text(field, Need::Required);
  if (!text.empty() && !is_time(text))
    reader.refuse(field, "« " + text + " » n'est pas une heure (HH:MM attendu)");
  return text;
}

TechnicienInput read_technicien(FieldReader reader, const std::string& field) {
  TechnicienInput technicien;
  technicien.code = reader.integer("code", Need::Required, 1, 32767);
  technicien.nom = reader.text("nom", Need::Required);
  if (const Json* list = reader.array("plages", Need::Required)) {
    for (std::size_t i = 0; i < list->size(); ++i) {
      const std::string place = "plages[" + std::to_string(i) + "]";
      if (!(*list)[i].is_object()) {
        reader.refuse(place, "objet attendu");
        continue;
      }
      FieldReader slot = reader.inside((*list)[i], field + "." + place + ".");
      technicien.plages.push_back({read_time(slot, "debut"), read_time(slot, "fin")});
      slot.finish();
    }
  }
  reader.finish();
  return technicien;
}

void read_techniciens(FieldReader& reader, InterventionInput& intervention) {
  const Json* list = reader.array("techniciens", Need::Optional);
  if (!list) return;
  for (std::size_t i = 0; i < list->size(); ++i) {
    const std::string field = "techniciens[" + std::to_string(i) + "]";
    if ((*list)[i].is_object()) {
      intervention.techniciens.push_back(read_technicien(reader.inside((*list)[i], field + "."), field));
    } else {
      reader.refuse(field, "objet attendu");
    }
  }
}

InterventionInput read_intervention(FieldReader& reader, const TvaInput& tva) {
  InterventionInput intervention;
  intervention.code = reader.text("code", Need::Required);
  intervention.libelle = reader.text("libelle", Need::Required);
  intervention.client = reader.text("client", Need::Required);
  intervention.nom_client = reader.text("nomClient", Need::Required);
  intervention.vendeur = reader.text("vendeur", Need::Optional);
  intervention.contrat = reader.text("contrat", Need::Optional);
  intervention.date = reader.date("date", Need::Required);
  intervention.tarif = static_cast<Tarif>(reader.choice("tarif", Need::Required, {"HT", "TTC"}));
  if (const Json* site = reader.object("site", Need::Required))
    intervention.site = read_adresse(reader.inside(*site, "site."));
  intervention.facturation = intervention.site;
  if (const Json* adresse = reader.object("adresseFacturation", Need::Optional))
    intervention.facturation = read_adresse(reader.inside(*adresse, "adresseFacturation."));
  if (const Json* list = reader.array("articles", Need::Required)) {
    if (list->empty()) reader.refuse("articles", "liste vide");
    for (std::size_t i = 0; i < list->size(); ++i) {
      const std::string field = "articles[" + std::to_string(i) + "]";
      if ((*list)[i].is_object()) {
        intervention.articles.push_back(read_article(reader.inside((*list)[i], field + "."), tva));
      } else {
        reader.refuse(field, "objet attendu");
      }
    }
  }
  return intervention;
}

}  // namespace

void read_interventions(const Json& document, const TvaInput& tva, Problems& problems, Input& input) {
  FieldReader file(document, kInterventionsFile, "", problems);
  const Json* list = file.array("interventions", Need::Required);
  file.finish();
  if (!list) return;
  std::set<std::string> codes;
  for_each_object(*list, kInterventionsFile, "intervention", problems,
                  [&](const Json& element, const std::string& subject) {
                    FieldReader reader(element, kInterventionsFile, subject, problems);
                    InterventionInput intervention = read_intervention(reader, tva);
                    read_techniciens(reader, intervention);
                    if (!intervention.code.empty() && !codes.insert(intervention.code).second)
                      reader.refuse("code", "code déjà présent");
                    if (reader.finish()) input.interventions.push_back(std::move(intervention));
                  });
}

}  // namespace facturation
