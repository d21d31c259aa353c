// Grouping of generated invoice lines.
#include <new>

#include "invoicing/invoice_grid.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Generation final : public ClassObject<::_Generation> {
 public:
  HRESULT STDMETHODCALLTYPE IsRuptRgrpCadFact(VARIANT* Tableau, short IndOrig, short IndComp,
                                              VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return same_invoice(VariantGrid(required(Tableau)), IndOrig, IndComp); });
  }

  HRESULT STDMETHODCALLTYPE RegroupementFacture(VARIANT* Tableau) noexcept override {
    return perform([&] {
      group_by_invoice(VariantGrid(required(Tableau)), initial<GeneralConstants>.m_c_sTypDoc_Fact);
    });
  }
};

}  // namespace

IDispatch* create_Generation() { return new (std::nothrow) Generation; }

}  // namespace velmosav
