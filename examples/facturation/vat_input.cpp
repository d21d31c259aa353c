#include "file_readers.h"

namespace facturation {

std::optional<TvaInput> read_tva(const Json& document, Problems& problems) {
  TvaInput tva;
  FieldReader file(document, kTvaFile, "", problems);
  tva.format = file.text("formatTVA", Need::Required);
  tva.format_non_multi = file.text("formatTVANonMulti", Need::Required);
  const Json* list = file.array("codes", Need::Required);
  file.finish();
  if (!list) return std::nullopt;

  for_each_object(*list, kTvaFile, "code TVA", problems,
                  [&](const Json& element, const std::string& subject) {
                    FieldReader reader(element, kTvaFile, subject, problems);
                    TvaCode entry;
                    // 0 is never filled from the table, and 99 stands for several codes.
                    entry.code = reader.integer("code", Need::Required, 1, 98);
                    entry.taux = reader.number("taux", Need::Required, {0, 100});
                    entry.compte = reader.text("compte", Need::Required);
                    entry.compte_enc = reader.text("compteEnc", Need::Optional);
                    reader.text("libelle", Need::Optional);
                    if (tva.knows(entry.code)) reader.refuse("code", "code déjà présent");
                    if (reader.finish()) tva.codes.push_back(std::move(entry));
                  });
  if (!tva.codes.empty()) return tva;
  problems.add(kTvaFile, "aucun code de TVA utilisable");
  return std::nullopt;
}

}  // namespace facturation
