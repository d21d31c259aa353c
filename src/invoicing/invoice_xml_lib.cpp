// The XML invoice of a contract or an intervention.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class InvoiceXMLLib final : public ClassObject<::_InvoiceXMLLib> {
 public:
#include "object/constant_properties.h"
#include "constants/InvoiceXMLLib.def"

  HRESULT STDMETHODCALLTYPE SetHeadInvoiceXML_ByCtt(Type_Contrat*, BSTR, BSTR, BSTR, BSTR, VARIANT,
                                                    BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE SetHeadInvoiceXML_ByInt(Type_Bon*, BSTR, Type_AdresseTiers*, BSTR, BSTR, BSTR,
                                                    BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE InitConstXML() noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE AddIntervToInvoiceXML(Type_Bon*, BSTR, long, BSTR, short*,
                                                  BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE AddCttToInvoiceXML(Type_Contrat*, short, BSTR, long, short*,
                                               BSTR*) noexcept override {
    return not_available();
  }

 private:
  InvoiceXMLLibConstants constants_;
};

}  // namespace

IDispatch* create_InvoiceXMLLib() { return new (std::nothrow) InvoiceXMLLib; }

}  // namespace velmosav
