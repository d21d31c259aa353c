// Renewal constants and comparison of renewal lines.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Reconduction final : public ClassObject<::_Reconduction> {
 public:
#include "object/constant_properties.h"
#include "constants/Reconduction.def"

  HRESULT STDMETHODCALLTYPE bDiffLigneTab(VARIANT, short, VARIANT_BOOL*) noexcept override {
    return not_available();
  }

 private:
  ReconductionConstants constants_;
};

}  // namespace

IDispatch* create_Reconduction() { return new (std::nothrow) Reconduction; }

}  // namespace velmosav
