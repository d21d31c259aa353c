// Maintenance contracts.
#include <new>

#include "automation/array.h"
#include "contracts/billing_schedule.h"
#include "contracts/contract_amounts.h"
#include "contracts/contract_interventions.h"
#include "contracts/contract_sites.h"
#include "contracts/popup_menu.h"
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

  HRESULT STDMETHODCALLTYPE FirstIntervSite(Type_Contrat* Contrat, short* NumInterv, VARIANT_BOOL* Suiv,
                                            VARIANT_BOOL* Prec, short* Resultat) noexcept override {
    return answer(Resultat, [&] {
      VARIANT_BOOL not_given = VARIANT_FALSE;
      return first_of_site(required(Contrat), required(NumInterv), Suiv && *Suiv, Prec ? *Prec : not_given);
    });
  }

  HRESULT STDMETHODCALLTYPE GetNumSite_Dll(Type_Contrat* Contrat, short* NumInterv,
                                           short* Resultat) noexcept override {
    return answer(Resultat, [&] { return site_group_of(required(Contrat), required(NumInterv)); });
  }

  HRESULT STDMETHODCALLTYPE GetIndByNumSite(Type_Contrat* Contrat, short* Num,
                                            short* Resultat) noexcept override {
    return answer(Resultat, [&] { return first_of_site_group(required(Contrat), required(Num)); });
  }

  HRESULT STDMETHODCALLTYPE CheckDateInterCtt(short iNumInt, Type_Contrat* Contrat,
                                              VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return correct_intervention_dates(required(Contrat), iNumInt); });
  }

  HRESULT STDMETHODCALLTYPE CheckLibInterCtt(Type_Contrat* Contrat, VARIANT* ind,
                                             VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const auto clash = clashing_label(required(Contrat));
      if (clash && !is_missing(ind)) store_variable(*ind, Variant(narrow_to_short(*clash)));
      return !clash;
    });
  }

  HRESULT STDMETHODCALLTYPE ListeSitesCttSQL(Type_Contrat* Ctt, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return site_list(required(Ctt)); });
  }

  HRESULT STDMETHODCALLTYPE IsInfosIntervModifiable(Type_Contrat* Doc, VARIANT NumInt,
                                                    VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat,
                  [&] { return is_modifiable(required(Doc), is_missing(NumInt) ? -1 : to_long(NumInt)); });
  }

  HRESULT STDMETHODCALLTYPE CheckPreavisDocCtt(Type_Contrat* Contrat, VARIANT_BOOL bCourr,
                                               VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] { return notice_fits(required(Contrat), bCourr != VARIANT_FALSE); });
  }

  HRESULT STDMETHODCALLTYPE RazDocCtt(Type_Contrat* Doc) noexcept override {
    return perform([&] { clear_lists(required(Doc)); });
  }

  HRESULT STDMETHODCALLTYPE OpenPopupMenu_CttInterv(IDispatch** Btn, VARIANT_BOOL bVisibOptListe,
                                                    VARIANT_BOOL bVisibOptCreer, VARIANT_BOOL bVisibOptSupp,
                                                    IndMenuPop* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const MenuEntry entries[] = {
          {bVisibOptListe != VARIANT_FALSE, L"Liste des interventions", IndMenuPop_Liste, true},
          {bVisibOptCreer != VARIANT_FALSE, L"Créer une intervention", IndMenuPop_Creer},
          {bVisibOptSupp != VARIANT_FALSE, L"Supprimer l'intervention", IndMenuPop_Supprimer}};
      return choose_from_menu(held(Btn).get(), entries);
    });
  }

  HRESULT STDMETHODCALLTYPE OpenPopupMenu_CttSite(IDispatch** Btn, VARIANT_BOOL bVisibOptListe,
                                                  VARIANT_BOOL bVisibOptAjtSite,
                                                  VARIANT_BOOL bVisibOptRemplSite,
                                                  VARIANT_BOOL bVisibOptExclure,
                                                  IndMenuPop* Resultat) noexcept override {
    return answer(Resultat, [&] {
      // Excluding a site has no value of its own: it answers like a deletion.
      const MenuEntry entries[] = {
          {bVisibOptListe != VARIANT_FALSE, L"Liste des sites", IndMenuPop_Liste, true},
          {bVisibOptAjtSite != VARIANT_FALSE, L"Ajouter un site", IndMenuPop_AjoutSite},
          {bVisibOptRemplSite != VARIANT_FALSE, L"Remplacer par un site", IndMenuPop_RemplSite},
          {bVisibOptExclure != VARIANT_FALSE, L"Exclure le site", IndMenuPop_Supprimer}};
      return choose_from_menu(held(Btn).get(), entries);
    });
  }

 private:
  ContratDocConstants constants_;
};

}  // namespace

IDispatch* create_ContratDoc() { return new (std::nothrow) ContratDoc; }

}  // namespace velmosav
