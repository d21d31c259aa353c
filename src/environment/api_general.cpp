// General constants and text replacement.
#include <new>

#include "environment/text_replacement.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class ApiGeneral final : public ClassObject<::_ApiGeneral> {
 public:
#include "object/constant_properties.h"
#include "constants/ApiGeneral.def"

  HRESULT STDMETHODCALLTYPE RemplaceTxt(BSTR* Txt, BSTR Cherche, BSTR Remplace) noexcept override {
    return perform([&] { replace_ignoring_case(required(Txt), view(Cherche), view(Remplace)); });
  }

 private:
  ApiGeneralConstants constants_;
};

}  // namespace

IDispatch* create_ApiGeneral() { return new (std::nothrow) ApiGeneral; }

}  // namespace velmosav
