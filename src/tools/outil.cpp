// Tools: amounts, durations, code lists, input formats, control helpers.
#include <new>

#include "amounts/amount_arithmetic.h"
#include "tools/object_address.h"
#include "companion/companion.h"
#include "object/class_object.h"
#include "tools/code_lists.h"
#include "tools/control_helpers.h"
#include "tools/durations.h"
#include "tools/input_formats.h"

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

  HRESULT STDMETHODCALLTYPE DoubleToDuree(double* Nombre, BSTR* UnitNombre, SAFEARRAY** TabFormat,
                                          BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return duration_text(required(Nombre), view(required(UnitNombre)), required(TabFormat));
    });
  }

  HRESULT STDMETHODCALLTYPE DureeToDouble(BSTR* Duree, BSTR* UnitNombre, VARIANT_BOOL* FlagGdeDuree,
                                          double* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return duration_number(view(required(Duree)), view(required(UnitNombre)),
                             FlagGdeDuree && *FlagGdeDuree);
    });
  }

  HRESULT STDMETHODCALLTYPE SetStringForSQL(BSTR Val, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return sql_literal(view(Val)); });
  }

  HRESULT STDMETHODCALLTYPE ListeCodes_ConcateneCode(BSTR* sListeCodes, BSTR sCode) noexcept override {
    return perform([&] { append_code(required(sListeCodes), view(sCode)); });
  }

  HRESULT STDMETHODCALLTYPE ListeCodes_GetNextCode_Token(BSTR* sListeCodes,
                                                         BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      std::wstring_view rest = view(required(sListeCodes));
      const std::size_t length = rest.size();
      Bstr code(take_code(rest));
      if (rest.size() != length) assign(*sListeCodes, rest);
      return code;
    });
  }

  HRESULT STDMETHODCALLTYPE ListeCodes_NbCodes(BSTR sListeCodes, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return code_count(view(sListeCodes)); });
  }

  HRESULT STDMETHODCALLTYPE ListeCodes_ExtractionCode(BSTR* sListeCodes, BSTR sCode) noexcept override {
    return perform([&] { remove_code(required(sListeCodes), view(sCode)); });
  }

  HRESULT STDMETHODCALLTYPE CheckFmtSaisNum(BSTR fmt, double Valeur,
                                            VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return satisfies_format(view(fmt), Valeur); });
  }

  HRESULT STDMETHODCALLTYPE CheckFmtNum(IDispatch** Ctl, VARIANT* Valeur,
                                        VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return satisfies_control_format(held(Ctl).get(), Valeur); });
  }

  HRESULT STDMETHODCALLTYPE IsRacinesValides(BSTR* Racine, BSTR* sClasseRac, BSTR* Exclure,
                                             VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return validate_roots(required(Racine), sClasseRac, Exclure); });
  }

  HRESULT STDMETHODCALLTYPE IsCompteValide(BSTR* Cpt, BSTR Racine, VARIANT_BOOL bModifCpt,
                                           VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat,
                  [&] { return has_root(required(Cpt), view(Racine), bModifCpt != VARIANT_FALSE); });
  }

  HRESULT STDMETHODCALLTYPE RemplaceChamp(BSTR ChampOrig, BSTR CaraRechch, BSTR CaraRempl,
                                          BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return companion::replace_text(view(ChampOrig), view(CaraRechch), view(CaraRempl));
    });
  }

  HRESULT STDMETHODCALLTYPE ObjFromPtr(long pObj, IDispatch** Resultat) noexcept override {
    return answer(Resultat, [&] { return object_at(pObj); });
  }

  HRESULT STDMETHODCALLTYPE SetLabelHauteur(IDispatch* Ctl, BSTR sCaption, VARIANT lW, VARIANT lFColor,
                                            VARIANT bFBold) noexcept override {
    return perform([&] { fit_label(Ctl, view(sCaption), lW, lFColor, bFBold); });
  }

  HRESULT STDMETHODCALLTYPE SetRegionStdBout(IDispatch** Bt) noexcept override {
    return perform([&] { cut_button_corners(held(Bt).get()); });
  }

  HRESULT STDMETHODCALLTYPE GetValScrollSurvol(IDispatch** SC, short* IndLig, short* indcol,
                                               VARIANT* Resultat) noexcept override {
    return answer(Resultat, [&] { return value_under_mouse(held(SC).get(), IndLig, indcol); });
  }

  HRESULT STDMETHODCALLTYPE GestionColQte(IDispatch** Col, BSTR, BYTE NbDec, BSTR Posit, BSTR,
                                          VARIANT_BOOL bFmtAffEmpty) noexcept override {
    return perform(
        [&] { set_up_quantity_column(held(Col).get(), NbDec, view(Posit), bFmtAffEmpty != VARIANT_FALSE); });
  }
};

}  // namespace

IDispatch* create_Outil() { return new (std::nothrow) Outil; }

}  // namespace velmosav
