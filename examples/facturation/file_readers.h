// One reader per data file, and what they share.
#pragma once

#include "input.h"
#include "json_input.h"

namespace facturation {

std::optional<TvaInput> read_tva(const Json& document, Problems& problems);

/// Sets the default invoicing date and the contracts that are right.
void read_contrats(const Json& document, const TvaInput& tva, Problems& problems, Input& input);

void read_interventions(const Json& document, const TvaInput& tva, Problems& problems, Input& input);

Adresse read_adresse(FieldReader reader);

/// A VAT code that must be in the table; 0 when it is not.
int read_code_tva(FieldReader& reader, const char* field, const TvaInput& tva);

/// Reads each object of a list through `read(element, subject)`.
template <class Read>
void for_each_object(const Json& list, const char* file, const char* kind, Problems& problems, Read read) {
  std::size_t place = 0;
  for (const Json& element : list) {
    const std::string subject = subject_of(element, kind, place++);
    if (element.is_object()) {
      read(element, subject);
    } else {
      problems.add(file, subject + " : objet attendu");
    }
  }
}

}  // namespace facturation
