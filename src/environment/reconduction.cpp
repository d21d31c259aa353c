// Renewal constants and comparison of renewal lines.
#include <new>

#include "automation/variant_compare.h"
#include "automation/variant_grid.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

/// True when a row's amounts before tax, VAT or amounts after tax differ. Fault 94 for a Null cell.
bool changes_amounts(const VariantGrid& grid, long row) {
  const auto differ = [&](long former, long current) {
    return !equal_values(grid.cell(row, former), grid.cell(row, current));
  };
  const bool ht = differ(PC_TMajRec_PC_TMajRec_ColOldHT, PC_TMajRec_PC_TMajRec_ColNewHT);
  const bool vat = differ(PC_TMajRec_PC_TMajRec_ColOldTva, PC_TMajRec_PC_TMajRec_ColNewTva);
  const bool ttc = differ(PC_TMajRec_PC_TMajRec_ColOldTTC, PC_TMajRec_PC_TMajRec_ColNewTTC);
  return ht || vat || ttc;
}

class Reconduction final : public ClassObject<::_Reconduction> {
 public:
#include "object/constant_properties.h"
#include "constants/Reconduction.def"

  HRESULT STDMETHODCALLTYPE bDiffLigneTab(VARIANT Tableau, short Lig,
                                          VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return changes_amounts(VariantGrid(Tableau), Lig); });
  }

 private:
  ReconductionConstants constants_;
};

}  // namespace

IDispatch* create_Reconduction() { return new (std::nothrow) Reconduction; }

}  // namespace velmosav
