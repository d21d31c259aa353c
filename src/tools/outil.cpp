// Tools: amounts, durations, code lists, input formats, control helpers.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Outil final : public ClassObject<::_Outil> {
 public:
  HRESULT STDMETHODCALLTYPE DLL_GetAmountHTByTTC(double, double, BYTE, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE DLL_GetAmountDiscounted(double, double, BYTE, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE DLL_GetAmountTTCByHT(double, double, BYTE, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE DLL_GetAmountTVA(double, double, BSTR, BYTE, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE DoubleToDuree(double*, BSTR*, SAFEARRAY**, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE DureeToDouble(BSTR*, BSTR*, VARIANT_BOOL*, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE SetStringForSQL(BSTR, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE ListeCodes_ConcateneCode(BSTR*, BSTR) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE ListeCodes_GetNextCode_Token(BSTR*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE ListeCodes_NbCodes(BSTR, short*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE ListeCodes_ExtractionCode(BSTR*, BSTR) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CheckFmtSaisNum(BSTR, double, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CheckFmtNum(IDispatch**, VARIANT*, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE IsRacinesValides(BSTR*, BSTR*, BSTR*, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE IsCompteValide(BSTR*, BSTR, VARIANT_BOOL, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE RemplaceChamp(BSTR, BSTR, BSTR, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE ObjFromPtr(long, IDispatch**) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE SetLabelHauteur(IDispatch*, BSTR, VARIANT, VARIANT, VARIANT) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE SetRegionStdBout(IDispatch**) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetValScrollSurvol(IDispatch**, short*, short*, VARIANT*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GestionColQte(IDispatch**, BSTR, BYTE, BSTR, BSTR,
                                          VARIANT_BOOL) noexcept override {
    return not_available();
  }
};

}  // namespace

IDispatch* create_Outil() { return new (std::nothrow) Outil; }

}  // namespace velmosav
