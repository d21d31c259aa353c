// Maintenance contracts.
#include <new>

#include "automation/array.h"
#include "contracts/billing_schedule.h"
#include "contracts/contract_amounts.h"
#include "contracts/contract_interventions.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class ContratDoc final : public ClassObject<::_ContratDoc> {
 public:
#include "object/constant_properties.h"
#include "constants/ContratDoc.def"

  HRESULT STDMETHODCALLTYPE CadFactPeriod_GetEndFromNextStart(BSTR sStart, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return period_end_before(view(sStart)); });
  }

  HRESULT STDMETHODCALLTYPE CadFactPeriod_GetStartFromPreviousEnd(BSTR sEnd,
                                                                  BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return period_start_after(view(sEnd)); });
  }

  HRESULT STDMETHODCALLTYPE Ctt_SetCadFactStartPeriod(Type_Contrat* Ctt, BSTR sEnd,
                                                      BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return capped_period_start_after(required(Ctt), view(sEnd)); });
  }

  HRESULT STDMETHODCALLTYPE Ctt_SetCadFactEndPeriod(Type_Contrat* Ctt, BSTR sStart,
                                                    BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return capped_period_end_before(required(Ctt), view(sStart)); });
  }

  HRESULT STDMETHODCALLTYPE CadFact_SpreadPeriodDateEdition(Type_Contrat* Ctt, short iRow, BSTR sDate,
                                                            VARIANT_BOOL bStart,
                                                            short* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return spread_edited_date(required(Ctt), iRow, view(sDate), bStart != VARIANT_FALSE);
    });
  }

  HRESULT STDMETHODCALLTYPE AjouterCadFactCtt(Type_Contrat* Contrat, BSTR DateEch, BSTR DateDeb, BSTR DateFin,
                                              short* ind, short* Resultat) noexcept override {
    return answer(Resultat, [&] {
      short append = -1;
      return add_instalment(required(Contrat), constants_, {view(DateEch), view(DateDeb), view(DateFin)},
                            ind ? *ind : append);
    });
  }

  HRESULT STDMETHODCALLTYPE GetLastDatePeriode(Type_Contrat* Doc, VARIANT_BOOL bTrans, BSTR sDateDef,
                                               BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return Bstr(last_period_end(required(Doc), bTrans != VARIANT_FALSE, view(sDateDef)));
    });
  }

  HRESULT STDMETHODCALLTYPE NbrCadFact(Type_Contrat* Contrat, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Contrat).TabCadFact); });
  }

  HRESULT STDMETHODCALLTYPE NbrCadFactFacture(Type_Contrat* Contrat, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return invoiced_row_count(required(Contrat)); });
  }

  HRESULT STDMETHODCALLTYPE NbrEchP(Type_Contrat* Contrat, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Contrat).Tech); });
  }

  HRESULT STDMETHODCALLTYPE IsEchCttForcee(Type_Contrat* Contrat, VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return has_forced_row(required(Contrat)); });
  }

  HRESULT STDMETHODCALLTYPE IsEchCttTransferee(Type_Contrat* Contrat, VARIANT* FlagFact, VARIANT* FlagInt,
                                               VARIANT* NumInt, VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return is_committed(required(Contrat), FlagFact, FlagInt, NumInt); });
  }

  HRESULT STDMETHODCALLTYPE SetDateByDuree(BSTR DateDeb, long Duree, BSTR UnitDuree,
                                           BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return end_of_duration(view(DateDeb), Duree, view(UnitDuree)); });
  }

  HRESULT STDMETHODCALLTYPE GetMttPivot(Type_Contrat* Doc, double* Resultat) noexcept override {
    return answer(Resultat, [&] { return pivot_amount(required(Doc)); });
  }

  HRESULT STDMETHODCALLTYPE GetMttPivotCadFact(Type_CadencierFact* Cadenc,
                                               double* Resultat) noexcept override {
    return answer(Resultat, [&] { return pivot_amount(required(Cadenc)); });
  }

  HRESULT STDMETHODCALLTYPE GetMttCtt(Type_Contrat* Doc, VARIANT* MttHT, VARIANT* MttTTC,
                                      double* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const ScheduleTotal total = schedule_total(required(Doc));
      if (!is_missing(MttHT)) store_variable(*MttHT, Variant(total.ht));
      if (!is_missing(MttTTC)) store_variable(*MttTTC, Variant(total.ttc));
      return pivot_side(*Doc, total);
    });
  }

  HRESULT STDMETHODCALLTYPE CalculSommeMtt(Type_Contrat* Contrat, short NbDecTot) noexcept override {
    return perform([&] { total_from_schedule(required(Contrat), NbDecTot); });
  }

  HRESULT STDMETHODCALLTYPE CalculMttBrut(Type_Contrat* Contrat, short NbDecTot) noexcept override {
    return perform([&] { set_gross_amounts(required(Contrat), NbDecTot); });
  }

  HRESULT STDMETHODCALLTYPE GetMttEchTransf(Type_Contrat* Contrat, VARIANT TypeTarif,
                                            CY* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const Type_Contrat& contract = required(Contrat);
      if (is_missing(TypeTarif)) return transferred_total(contract, view(contract.TypeTypTarif));
      return transferred_total(contract, trim(to_text(TypeTarif).view()));
    });
  }

  HRESULT STDMETHODCALLTYPE NbrInterv(Type_Contrat* Contrat, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Contrat).TabInterv); });
  }

  HRESULT STDMETHODCALLTYPE NbrCadInterv(Type_Contrat* Contrat, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return scheduled_intervention_count(required(Contrat)); });
  }

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

  HRESULT STDMETHODCALLTYPE RazDocCtt(Type_Contrat* Doc) noexcept override {
    return perform([&] { clear_lists(required(Doc)); });
  }

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
