// Recurrence rules: labels, dates and calendar helpers.
#include <new>

#include "dates/duration_units.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Periodicite final : public ClassObject<::_Periodicite> {
 public:
#include "object/constant_properties.h"
#include "constants/Periodicite.def"

  HRESULT STDMETHODCALLTYPE GetListeFormat(BSTR*, BSTR, VARIANT_BOOL*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE CheckDate(BSTR, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE LastDayOfMonth(short*, VARIANT*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetKeyDay(short*, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetKeyMonth(short*, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetNumMonth(BSTR*, BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE GetFormatUniteDuree(BSTR* Unite, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(interval_of_unit(view(required(Unite)))); });
  }

  HRESULT STDMETHODCALLTYPE GetPrevNextMonth(BSTR*, Type_Periodicite*, VARIANT_BOOL*,
                                             BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetLibPeriodicite(Type_Periodicite*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE GetDateOfDay(Type_Periodicite*, VARIANT*, VARIANT*, BSTR*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE RenseignerChampBinaire(IDispatch**, BSTR*, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

 private:
  PeriodiciteConstants constants_;
};

}  // namespace

IDispatch* create_Periodicite() { return new (std::nothrow) Periodicite; }

}  // namespace velmosav
