// Coverage lines of a contract, guarantee or intervention.
#include <limits>
#include <new>

#include "automation/array.h"
#include "documents/coverage.h"
#include "object/class_object.h"
#include "records/record_array.h"

namespace velmosav {
namespace {

class Couverture final : public ClassObject<::_Couverture> {
 public:
  HRESULT STDMETHODCALLTYPE InitLigneCouverture(Type_LigneCouverture* Lig) noexcept override {
    return perform([&] { clear_line(required(Lig)); });
  }

  HRESULT STDMETHODCALLTYPE InsererLigCouverture(Type_Couverture* Document, VARIANT ind) noexcept override {
    constexpr double kAtTheEnd = std::numeric_limits<double>::max();
    return perform([&] { insert_line(required(Document), is_missing(ind) ? kAtTheEnd : to_double(ind)); });
  }

  HRESULT STDMETHODCALLTYPE ArtDejaPresent(BSTR Art, Type_Couverture* Document, VARIANT Lig,
                                           VARIANT_BOOL* Resultat) noexcept override {
    return answer(Resultat, [&] {
      const Type_Couverture& coverage = required(Document);
      if (view(Art).empty()) return false;
      return contains_article(coverage, view(Art), is_missing(Lig) ? -1 : to_double(Lig));
    });
  }

  HRESULT STDMETHODCALLTYPE NbrArticle(Type_Couverture* Couv, short* Resultat) noexcept override {
    return answer(Resultat, [&] { return count_of(required(Couv).Liste); });
  }

  HRESULT STDMETHODCALLTYPE RazCouv(Type_Couverture* Couv) noexcept override {
    return perform([&] { clear_lines(required(Couv)); });
  }
};

}  // namespace

IDispatch* create_Couverture() { return new (std::nothrow) Couverture; }

}  // namespace velmosav
