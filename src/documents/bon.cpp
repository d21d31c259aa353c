// Work orders: counts, times, resets.
#include <new>

#include "automation/array.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class Bon final : public ClassObject<::_Bon> {
 public:
  HRESULT STDMETHODCALLTYPE NbrArtBon(Type_Bon* Document, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Document).TabArticle); });
  }

  HRESULT STDMETHODCALLTYPE GetDureeTotPlages(BSTR, Type_LigneRessource*, double*) noexcept override {
    return not_available();
  }

  HRESULT STDMETHODCALLTYPE RazTabApp(SAFEARRAY**) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE RazDocInt(Type_Bon*, VARIANT_BOOL) noexcept override { return not_available(); }
};

}  // namespace

IDispatch* create_Bon() { return new (std::nothrow) Bon; }

}  // namespace velmosav
