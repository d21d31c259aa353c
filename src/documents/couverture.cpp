// Coverage lines of a contract, guarantee or intervention.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Couverture final : public ClassObject<::_Couverture> {
 public:
  HRESULT STDMETHODCALLTYPE InitLigneCouverture(Type_LigneCouverture*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE InsererLigCouverture(Type_Couverture*, VARIANT) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE ArtDejaPresent(BSTR, Type_Couverture*, VARIANT, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE NbrArticle(Type_Couverture*, short*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE RazCouv(Type_Couverture*) noexcept override { return not_available(); }
};

}  // namespace

IDispatch* create_Couverture() { return new (std::nothrow) Couverture; }

}  // namespace velmosav
