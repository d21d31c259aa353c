// Document types, provenances, table names and shared constants.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class General final : public ClassObject<::_General> {
 public:
#include "object/constant_properties.h"
#include "constants/General.def"

  HRESULT STDMETHODCALLTYPE GetNomTableByTypeDoc(BSTR, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetTypeDocByProv(BSTR, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetProvByTypeDocSAV(BSTR, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetFmtSaisDureeUnit(BSTR*, short*, BSTR*) noexcept override {
    return not_available();
  }

 private:
  GeneralConstants constants_;
};

}  // namespace

IDispatch* create_General() { return new (std::nothrow) General; }

}  // namespace velmosav
