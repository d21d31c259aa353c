// VAT distribution of an amount.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class TvaRepart final : public ClassObject<::_TvaRepart> {
 public:
#include "object/constant_properties.h"
#include "constants/TvaRepart.def"

  HRESULT STDMETHODCALLTYPE WriteRepartTVA(Type_RepartTVA*, short*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetStrRepartByCodeTVA(BSTR, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE ReadRepartTVA(IDispatch**, short*, BSTR, double, VARIANT, short,
                                          Type_RepartTVA*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetAmountByRepartTVA(IDispatch**, Type_RepartTVA*, double, VARIANT, short,
                                                 double*) noexcept override {
    return not_available();
  }

 private:
  TvaRepartConstants constants_;
};

}  // namespace

IDispatch* create_TvaRepart() { return new (std::nothrow) TvaRepart; }

}  // namespace velmosav
