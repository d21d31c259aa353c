// Everything of a host that a call could damage: records with content, variables, grids, results. Compared as
// a whole before and after a fault.
#pragma once

#include <deque>

#include "support/records.h"

namespace atomicity {

using host::ComPtr;
using host::Record;
using host::Text;
using host::Variant;

/// The host's variables and records. What stands here is what a table entry "unchanged" speaks of.
class Variables {
 public:
  Record<Type_Contrat> contract;  // three billing rows, two interventions, two scheduled ones
  Record<Type_Bon> order;
  Record<Type_Intervention> intervention;
  Record<Type_Couverture> coverage;
  Record<Type_LigneRessource> technician;
  Record<Type_RepartTVA> distribution;
  Record<Type_Periodicite> rule;
  Record<Type_AdresseTiers> address;

  short number = 0, other_number = 0;
  VARIANT_BOOL flag = VARIANT_FALSE, other_flag = VARIANT_FALSE;
  double real = 0;
  Text text, other_text, third_text;
  Variant value, other_value, third_value;
  SAFEARRAY* array = nullptr;  // of VARIANTs, objects or bytes: compared by its bits
  Variant grid;                // rows to invoice: three rows of 14 columns
  Variant renewal;             // rows to renew: three rows of 27 columns
};

/// The cell of a grid.
VARIANT& cell(Variant& table, long row, long column);

class World : public Variables {
 public:
  World();
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  Type_CadencierFact& billing(unsigned long row) {
    return host::element<Type_CadencierFact>(contract->TabCadFact, row);
  }
  Type_Intervention& visit(unsigned long row) {
    return host::element<Type_Intervention>(contract->TabInterv, row);
  }

  /// Keeps everything as it is now; `differences` names what has changed since, as paths such as
  /// "contract.TabCadFact(2).DateFin".
  void remember();
  [[nodiscard]] std::vector<std::string> differences() const;

  /// Places for results, with content that a fault must have emptied.
  [[nodiscard]] BSTR* text_result();
  [[nodiscard]] short* short_result();
  [[nodiscard]] VARIANT_BOOL* truth_result() { return short_result(); }
  [[nodiscard]] double* real_result();
  [[nodiscard]] bool results_are_empty() const {
    return !text_result_ && !short_result_ && real_result_ == 0;
  }

 private:
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> plain_values() const;

  Variables before_;
  std::vector<std::pair<std::string, std::string>> plain_before_;
  BSTR text_result_ = nullptr;
  short short_result_ = 0;
  double real_result_ = 0;
};

}  // namespace atomicity
