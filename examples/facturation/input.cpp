#include "input.h"

#include <algorithm>

#include "file_readers.h"

namespace facturation {

bool TvaInput::knows(int code) const {
  return std::any_of(codes.begin(), codes.end(), [code](const TvaCode& entry) { return entry.code == code; });
}

std::optional<Input> read_input(const std::filesystem::path& folder, Problems& problems) {
  const std::optional<Json> tva = load_json(folder / kTvaFile, kTvaFile, problems);
  if (!tva) return std::nullopt;
  Input input;
  std::optional<TvaInput> table = read_tva(*tva, problems);
  if (!table) return std::nullopt;
  input.tva = std::move(*table);

  if (const auto document = load_json(folder / kContratsFile, kContratsFile, problems))
    read_contrats(*document, input.tva, problems, input);
  std::error_code ignored;
  if (std::filesystem::exists(folder / kInterventionsFile, ignored)) {
    if (const auto document = load_json(folder / kInterventionsFile, kInterventionsFile, problems))
      read_interventions(*document, input.tva, problems, input);
  }
  return input;
}

ContratInput repeated(ContratInput contrat, int copy) {
  if (copy > 0) {
    const std::string suffix = "-" + std::to_string(copy + 1);
    contrat.code += suffix;
    contrat.client += suffix;
  }
  return contrat;
}

InterventionInput repeated(InterventionInput intervention, int copy) {
  if (copy > 0) {
    const std::string suffix = "-" + std::to_string(copy + 1);
    intervention.code += suffix;
    intervention.client += suffix;
    if (!intervention.contrat.empty()) intervention.contrat += suffix;
  }
  return intervention;
}

Adresse read_adresse(FieldReader reader) {
  Adresse adresse;
  adresse.numero = reader.integer("numero", Need::Optional, 0, 32767);
  adresse.nom_site = reader.text("nom", Need::Optional);
  adresse.interlocuteur = reader.text("interlocuteur", Need::Optional);
  adresse.adresse = reader.text("adresse", Need::Optional);
  adresse.complement = reader.text("complement", Need::Optional);
  adresse.code_postal = reader.text("codePostal", Need::Optional);
  adresse.ville = reader.text("ville", Need::Required);
  adresse.telephone = reader.text("telephone", Need::Optional);
  adresse.telecopie = reader.text("telecopie", Need::Optional);
  adresse.mobile = reader.text("mobile", Need::Optional);
  adresse.email = reader.text("email", Need::Optional);
  reader.finish();
  return adresse;
}

int read_code_tva(FieldReader& reader, const char* field, const TvaInput& tva) {
  const int code = reader.integer(field, Need::Required, 1, 98);
  if (code && !tva.knows(code)) {
    reader.refuse(field, "code de TVA " + std::to_string(code) + " absent de " + kTvaFile);
    return 0;
  }
  return code;
}

}  // namespace facturation
