// Recurrence rules: labels, dates and calendar helpers.
#include <new>

#include "dates/binary_field.h"
#include "dates/calendar.h"
#include "dates/duration_units.h"
#include "dates/recurrence.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Periodicite final : public ClassObject<::_Periodicite> {
 public:
#include "object/constant_properties.h"
#include "constants/Periodicite.def"

  HRESULT STDMETHODCALLTYPE GetListeFormat(BSTR* Chaine, BSTR fmt, VARIANT_BOOL* Rempl,
                                           BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return selected_names(view(required(Chaine)), view(fmt), !Rempl || *Rempl != VARIANT_FALSE);
    });
  }

  HRESULT STDMETHODCALLTYPE CheckDate(BSTR DateT, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return corrected_date(view(DateT)); });
  }

  HRESULT STDMETHODCALLTYPE LastDayOfMonth(short* Mois, VARIANT* Annee, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return last_day_of_month(required(Mois), Annee); });
  }

  HRESULT STDMETHODCALLTYPE GetKeyDay(short* vbConst, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(weekday_key(required(vbConst))); });
  }

  HRESULT STDMETHODCALLTYPE GetKeyMonth(short* vbConst, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(month_key(required(vbConst))); });
  }

  HRESULT STDMETHODCALLTYPE GetNumMonth(BSTR* KeyMonth, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return month_number_of(view(required(KeyMonth))); });
  }

  HRESULT STDMETHODCALLTYPE GetFormatUniteDuree(BSTR* Unite, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(interval_of_unit(view(required(Unite)))); });
  }

  HRESULT STDMETHODCALLTYPE GetPrevNextMonth(BSTR* DateOrig, Type_Periodicite* Per, VARIANT_BOOL* Previous,
                                             BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] {
      return neighbour_month_date(constants_, view(required(DateOrig)), required(Per),
                                  required(Previous) != VARIANT_FALSE);
    });
  }

  HRESULT STDMETHODCALLTYPE GetLibPeriodicite(Type_Periodicite* Per, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return rule_label(constants_, required(Per)); });
  }

  HRESULT STDMETHODCALLTYPE GetDateOfDay(Type_Periodicite* Per, VARIANT* Mois, VARIANT* Annee,
                                         BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return date_of_rule_day(required(Per), Mois, Annee); });
  }

  HRESULT STDMETHODCALLTYPE RenseignerChampBinaire(IDispatch** RcsChamp, BSTR* FicTemp,
                                                   VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat,
                  [&] { return load_file_into_field(held(RcsChamp).get(), view(required(FicTemp))); });
  }

 private:
  PeriodiciteConstants constants_;
};

}  // namespace

IDispatch* create_Periodicite() { return new (std::nothrow) Periodicite; }

}  // namespace velmosav
