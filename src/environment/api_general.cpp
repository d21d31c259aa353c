// General constants and text replacement.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class ApiGeneral final : public ClassObject<::_ApiGeneral> {
 public:
#include "object/constant_properties.h"
#include "constants/ApiGeneral.def"

  HRESULT STDMETHODCALLTYPE RemplaceTxt(BSTR*, BSTR, BSTR) noexcept override { return not_available(); }

 private:
  ApiGeneralConstants constants_;
};

}  // namespace

IDispatch* create_ApiGeneral() { return new (std::nothrow) ApiGeneral; }

}  // namespace velmosav
