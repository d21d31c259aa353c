// A contract's intervention definition: resets and counts.
#include <new>

#include "automation/array.h"
#include "documents/work_orders.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Intervention final : public ClassObject<::_Intervention> {
 public:
#include "object/constant_properties.h"
#include "constants/Intervention.def"

  HRESULT STDMETHODCALLTYPE RazInterv(Type_Intervention* Doc) noexcept override {
    return perform([&] { clear_lists(required(Doc)); });
  }

  HRESULT STDMETHODCALLTYPE NbrAppareil(Type_Intervention* Interv, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Interv).TabAppareil, 2); });
  }

  HRESULT STDMETHODCALLTYPE NbrRessources(Type_Intervention* Interv, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return resource_count(required(Interv)); });
  }

 private:
  InterventionConstants constants_;
};

}  // namespace

IDispatch* create_Intervention() { return new (std::nothrow) Intervention; }

}  // namespace velmosav
