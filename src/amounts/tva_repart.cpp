// VAT distribution of an amount.
#include <new>

#include "amounts/vat_distribution.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

/// The tariff kind an optional argument names; before tax when it is missing.
Bstr tariff_kind(const VARIANT& kind) {
  return is_missing(kind) ? Bstr(initial<ArticleConstants>.m_PC_TARIF_HT.view()) : to_text(kind);
}

class TvaRepart final : public ClassObject<::_TvaRepart> {
 public:
#include "object/constant_properties.h"
#include "constants/TvaRepart.def"

  HRESULT STDMETHODCALLTYPE WriteRepartTVA(Type_RepartTVA* RepartTva, short* CodeTva,
                                           BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      short unused = 0;
      return write_distribution(required(RepartTva), constants_.m_PC_CodeTVAMultiple,
                                CodeTva ? *CodeTva : unused);
    });
  }

  HRESULT STDMETHODCALLTYPE GetStrRepartByCodeTVA(BSTR iTVA, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return single_code_distribution(view(iTVA)); });
  }

  HRESULT STDMETHODCALLTYPE ReadRepartTVA(IDispatch** clsTVA, short* iCodeTva, BSTR sRepartTva, double Mtt,
                                          VARIANT sTypeTarif, short NbDecTot,
                                          Type_RepartTVA* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const Bstr kind = tariff_kind(sTypeTarif);
      OwnedRecord<Type_RepartTVA> distribution;
      read_distribution(view(sRepartTva), held(clsTVA).get(),
                        {Mtt, kind.view(), NbDecTot, constants_.m_PC_CodeTVAMultiple}, required(iCodeTva),
                        distribution.get());
      return distribution;
    });
  }

  HRESULT STDMETHODCALLTYPE GetAmountByRepartTVA(IDispatch** clsTVA, Type_RepartTVA* tTabRep,
                                                 double dAmtPivot, VARIANT sTypeTarif, short NbDecTot,
                                                 double* Resultat) noexcept override {
    return answer(Resultat, [&] {
      required(clsTVA);  // part of the contract, although the rates already stand in the record
      return spread_amount(required(tTabRep), dAmtPivot, tariff_kind(sTypeTarif).view(), NbDecTot);
    });
  }

 private:
  TvaRepartConstants constants_;
};

}  // namespace

IDispatch* create_TvaRepart() { return new (std::nothrow) TvaRepart; }

}  // namespace velmosav
