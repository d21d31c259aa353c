// Grouping of generated invoice lines.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Generation final : public ClassObject<::_Generation> {
 public:
  HRESULT STDMETHODCALLTYPE IsRuptRgrpCadFact(VARIANT*, short, short, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE RegroupementFacture(VARIANT*) noexcept override { return not_available(); }
};

}  // namespace

IDispatch* create_Generation() { return new (std::nothrow) Generation; }

}  // namespace velmosav
