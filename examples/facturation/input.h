// What the data files hold, once checked. Texts are UTF-8.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "problems.h"

namespace facturation {

struct TvaCode {
  int code = 0;
  double taux = 0;
  std::string compte;
  std::string compte_enc;
};

struct TvaInput {
  std::string format;
  std::string format_non_multi;
  std::vector<TvaCode> codes;

  [[nodiscard]] bool knows(int code) const;
};

struct Adresse {
  int numero = 0;
  std::string nom_site, interlocuteur, adresse, complement, code_postal, ville;
  std::string telephone, telecopie, mobile, email;
};

struct Site {
  std::string code;
  std::string libelle;
  Adresse adresse;
};

enum class Tarif { Ht, Ttc };
enum class Unite { Jours, Semaines, Mois, Annees };
enum class Terme { Debut, Fin };

struct ContratInput {
  std::string code, libelle, client, nom_client, vendeur;
  std::string mode_reglement, compte, libelle_fact;
  std::string racines_comptes;  // roots that the account must have, empty for any
  std::string date_debut;
  std::string date_fin;  // empty: given by the duration
  int duree = 0;
  Unite unite_duree = Unite::Mois;
  int mois_par_echeance = 0;  // 0: a single instalment
  Terme terme = Terme::Debut;
  Tarif tarif = Tarif::Ht;
  double montant_echeance = 0;
  double remise = 0;
  int code_tva = 0;
  std::string repartition_tva;  // empty: the whole amount under the one code
  std::string facture_jusquau;  // end of the last period that was invoiced before
  bool suspendu = false;
  Adresse adresse;
  std::vector<Site> sites;
};

struct Plage {
  std::string debut, fin;  // times of the intervention's day, HH:MM
};

struct TechnicienInput {
  int code = 0;
  std::string nom;
  std::vector<Plage> plages;
};

struct ArticleInput {
  bool texte = false;
  std::string code, libelle, unite, valorisation;
  double quantite = 0, prix_revient = 0, prix_unitaire = 0, remise = 0, equivalence_stock = 0;
  bool pris_en_charge = false;
  bool prix_fixe = false;
  int code_tva = 0;
};

struct InterventionInput {
  std::string code, libelle, client, nom_client, vendeur, contrat;
  std::string date;
  Tarif tarif = Tarif::Ht;
  Adresse site;
  Adresse facturation;
  std::vector<ArticleInput> articles;
  std::vector<TechnicienInput> techniciens;
};

struct Input {
  TvaInput tva;
  std::string date_facturation;
  std::vector<ContratInput> contrats;
  std::vector<InterventionInput> interventions;
};

/// Reads the three files of the folder. What is wrong goes into `problems`; the rest is returned.
/// Nothing when there is no usable VAT table.
std::optional<Input> read_input(const std::filesystem::path& folder, Problems& problems);

/// The same document for another customer: the n-th copy of a long run.
ContratInput repeated(ContratInput contrat, int copy);
InterventionInput repeated(InterventionInput intervention, int copy);

inline constexpr const char* kTvaFile = "tva.json";
inline constexpr const char* kContratsFile = "contrats.json";
inline constexpr const char* kInterventionsFile = "interventions.json";

}  // namespace facturation
