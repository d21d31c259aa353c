// The XML invoice of a contract or an intervention.
#include <new>

#include "invoicing/invoice_header.h"
#include "invoicing/invoice_lines.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class InvoiceXMLLib final : public ClassObject<::_InvoiceXMLLib> {
 public:
#include "object/constant_properties.h"
#include "constants/InvoiceXMLLib.def"

  HRESULT STDMETHODCALLTYPE SetHeadInvoiceXML_ByCtt(Type_Contrat* Ctt, BSTR sLib, BSTR sXml, BSTR sCodeFact,
                                                    BSTR sDate, VARIANT sVend,
                                                    BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const Type_Contrat& contract = required(Ctt);
      const Bstr given = is_missing(sVend) ? Bstr() : to_text(sVend);
      const InvoiceHeader header{view(sCodeFact),
                                 view(sDate),
                                 view(contract.CodeClient),
                                 is_missing(sVend) ? view(contract.Vendeur) : trim(given.view()),
                                 view(contract.ModReg),
                                 view(sLib),
                                 L"CONTRAT",
                                 view(contract.Code),
                                 site_address(contract),
                                 header_address(contract.Adr)};
      return add_invoice_header(constants_, dom_, header, sXml);
    });
  }

  HRESULT STDMETHODCALLTYPE SetHeadInvoiceXML_ByInt(Type_Bon* Interv, BSTR sLib, Type_AdresseTiers* AdrFact,
                                                    BSTR sXml, BSTR sCodeFact, BSTR sDate,
                                                    BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const Type_Bon& intervention = required(Interv);
      const InvoiceHeader header{view(sCodeFact),
                                 view(sDate),
                                 view(intervention.CodeClient),
                                 {},
                                 {},
                                 view(sLib),
                                 L"INTERVENTION",
                                 view(intervention.Code),
                                 header_address(intervention.Adr),
                                 header_address(required(AdrFact))};
      return add_invoice_header(constants_, dom_, header, sXml);
    });
  }

  HRESULT STDMETHODCALLTYPE InitConstXML() noexcept override {
    return perform([&] {
#define CONSTANT(dispid, type, name, value, help) constants_.m_##name.reset(INITIAL_##type(value));
#include "constants/InvoiceXMLLib.def"
    });
  }

  HRESULT STDMETHODCALLTYPE AddIntervToInvoiceXML(Type_Bon* Interv, BSTR sXml, long lPtrTva,
                                                  BSTR sValFacToCmpr, short* iNumLig,
                                                  BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      short first = 0;
      return add_intervention_lines(constants_, dom_, required(Interv), sXml, lPtrTva, view(sValFacToCmpr),
                                    iNumLig ? *iNumLig : first);
    });
  }

  HRESULT STDMETHODCALLTYPE AddCttToInvoiceXML(Type_Contrat* Ctt, short iCad, BSTR sXml, long lPtrTva,
                                               short* iNumLig, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      short first = 0;
      return add_instalment_lines(constants_, dom_, required(Ctt), iCad, sXml, lPtrTva,
                                  iNumLig ? *iNumLig : first);
    });
  }

 private:
  InvoiceXMLLibConstants constants_;
  DomFactory dom_;
};

}  // namespace

IDispatch* create_InvoiceXMLLib() { return new (std::nothrow) InvoiceXMLLib; }

}  // namespace velmosav
