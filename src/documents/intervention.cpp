// A contract's intervention definition: resets and counts.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Intervention final : public ClassObject<::_Intervention> {
 public:
#include "object/constant_properties.h"
#include "constants/Intervention.def"

  HRESULT STDMETHODCALLTYPE RazInterv(Type_Intervention*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE NbrAppareil(Type_Intervention*, short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE NbrRessources(Type_Intervention*, short*) noexcept override {
    return not_available();
  }

 private:
  InterventionConstants constants_;
};

}  // namespace

IDispatch* create_Intervention() { return new (std::nothrow) Intervention; }

}  // namespace velmosav
