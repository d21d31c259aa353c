// Maintenance contracts.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class ContratDoc final : public ClassObject<::_ContratDoc> {
 public:
#include "object/constant_properties.h"
#include "constants/ContratDoc.def"

  HRESULT STDMETHODCALLTYPE CadFactPeriod_GetEndFromNextStart(BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CadFactPeriod_GetStartFromPreviousEnd(BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE Ctt_SetCadFactStartPeriod(Type_Contrat*, BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE Ctt_SetCadFactEndPeriod(Type_Contrat*, BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CadFact_SpreadPeriodDateEdition(Type_Contrat*, short, BSTR, VARIANT_BOOL,
                                                            short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE AjouterCadFactCtt(Type_Contrat*, BSTR, BSTR, BSTR, short*,
                                              short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetLastDatePeriode(Type_Contrat*, VARIANT_BOOL, BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE NbrCadFact(Type_Contrat*, short*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE NbrCadFactFacture(Type_Contrat*, short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE NbrEchP(Type_Contrat*, short*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE IsEchCttForcee(Type_Contrat*, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE IsEchCttTransferee(Type_Contrat*, VARIANT*, VARIANT*, VARIANT*,
                                               VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE SetDateByDuree(BSTR, long, BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetMttPivot(Type_Contrat*, double*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetMttPivotCadFact(Type_CadencierFact*, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetMttCtt(Type_Contrat*, VARIANT*, VARIANT*, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CalculSommeMtt(Type_Contrat*, short) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE CalculMttBrut(Type_Contrat*, short) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetMttEchTransf(Type_Contrat*, VARIANT, CY*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE NbrInterv(Type_Contrat*, short*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE NbrCadInterv(Type_Contrat*, short*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE FirstIntervSite(Type_Contrat*, short*, VARIANT_BOOL*, VARIANT_BOOL*,
                                            short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetNumSite_Dll(Type_Contrat*, short*, short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetIndByNumSite(Type_Contrat*, short*, short*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CheckDateInterCtt(short, Type_Contrat*, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CheckLibInterCtt(Type_Contrat*, VARIANT*, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE ListeSitesCttSQL(Type_Contrat*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE IsInfosIntervModifiable(Type_Contrat*, VARIANT, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CheckPreavisDocCtt(Type_Contrat*, VARIANT_BOOL, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE RazDocCtt(Type_Contrat*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE OpenPopupMenu_CttInterv(IDispatch**, VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL,
                                                    IndMenuPop*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE OpenPopupMenu_CttSite(IDispatch**, VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL,
                                                  VARIANT_BOOL, IndMenuPop*) noexcept override {
    return not_available();
  }

 private:
  ContratDocConstants constants_;
};

}  // namespace

IDispatch* create_ContratDoc() { return new (std::nothrow) ContratDoc; }

}  // namespace velmosav
