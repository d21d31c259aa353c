// Work orders: counts, times, resets.
#include <new>

#include "automation/array.h"
#include "documents/work_orders.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Bon final : public ClassObject<::_Bon> {
 public:
  HRESULT STDMETHODCALLTYPE NbrArtBon(Type_Bon* Document, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Document).TabArticle); });
  }

  HRESULT STDMETHODCALLTYPE GetDureeTotPlages(BSTR Unite, Type_LigneRessource* Ress,
                                              double* Resultat) noexcept override {
    return answer(Resultat, [&] { return total_slot_time(view(Unite), required(Ress)); });
  }

  HRESULT STDMETHODCALLTYPE RazTabApp(SAFEARRAY** TabApp) noexcept override {
    return perform([&] { erase_objects(required(TabApp)); });
  }

  HRESULT STDMETHODCALLTYPE RazDocInt(Type_Bon* Doc, VARIANT_BOOL bAll) noexcept override {
    return perform([&] { clear_lists(required(Doc), bAll != VARIANT_FALSE); });
  }
};

}  // namespace

IDispatch* create_Bon() { return new (std::nothrow) Bon; }

}  // namespace velmosav
