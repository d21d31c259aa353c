// Renewal constants and comparison of renewal lines.
#include <new>
#include <utility>

#include "automation/variant_compare.h"
#include "automation/variant_grid.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

/// True when a row's amounts before tax, VAT or amounts after tax differ. All are read: fault 94 for a Null
/// cell comes after the faults of the others.
bool changes_amounts(const VariantGrid& grid, long row) {
  constexpr std::pair<long, long> kPairs[] = {
      {PC_TMajRec_PC_TMajRec_ColOldHT, PC_TMajRec_PC_TMajRec_ColNewHT},
      {PC_TMajRec_PC_TMajRec_ColOldTva, PC_TMajRec_PC_TMajRec_ColNewTva},
      {PC_TMajRec_PC_TMajRec_ColOldTTC, PC_TMajRec_PC_TMajRec_ColNewTTC}};
  bool differ = false;
  bool any_null = false;
  for (const auto& [old_column, new_column] : kPairs) {
    const VARIANT& former = grid.cell(row, old_column);
    const VARIANT& current = grid.cell(row, new_column);
    if (is_null(former) || is_null(current)) {
      any_null = true;
    } else if (!equal_values(former, current)) {
      differ = true;
    }
  }
  if (any_null) raise(Fault::InvalidUseOfNull);
  return differ;
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
