// Tools: amounts, durations, code lists, input formats, control helpers.
#include <new>

#include "amounts/amount_arithmetic.h"
#include "tools/object_address.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Outil final : public ClassObject<::_Outil> {
 public:
  HRESULT STDMETHODCALLTYPE DLL_GetAmountHTByTTC(double VATRate, double AmountTTC, BYTE NumDigitDec,
                                                 double* Resultat) noexcept override {
    return answer(Resultat, [&] { return amount_ht_from_ttc(VATRate, AmountTTC, NumDigitDec); });
  }

  HRESULT STDMETHODCALLTYPE DLL_GetAmountDiscounted(double Amount, double DiscountRate, BYTE NumDigitDec,
                                                    double* Resultat) noexcept override {
    return answer(Resultat, [&] { return amount_before_discount(Amount, DiscountRate, NumDigitDec); });
  }

  HRESULT STDMETHODCALLTYPE DLL_GetAmountTTCByHT(double VATRate, double AmountHT, BYTE NumDigitDec,
                                                 double* Resultat) noexcept override {
    return answer(Resultat, [&] { return amount_ttc_from_ht(VATRate, AmountHT, NumDigitDec); });
  }

  HRESULT STDMETHODCALLTYPE DLL_GetAmountTVA(double VATRate, double Amount, BSTR sTypeTarif, BYTE NumDigitDec,
                                             double* Resultat) noexcept override {
    return answer(Resultat, [&] { return vat_of_amount(VATRate, Amount, view(sTypeTarif), NumDigitDec); });
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

  HRESULT STDMETHODCALLTYPE ObjFromPtr(long pObj, IDispatch** Resultat) noexcept override {
    return answer(Resultat, [&] { return object_at(pObj); });
  }

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
