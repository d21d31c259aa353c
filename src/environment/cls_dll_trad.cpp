// Translation of the library's texts.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class ClsDLLTrad final : public ClassObject<::_ClsDLLTrad> {
 public:
#include "object/constant_properties.h"
#include "constants/ClsDLLTrad.def"

  HRESULT STDMETHODCALLTYPE DLL_InitialisationTrad(BSTR*) noexcept override { return not_available(); }

  HRESULT STDMETHODCALLTYPE InitConstTrad() noexcept override { return not_available(); }

 private:
  ClsDLLTradConstants constants_;
};

}  // namespace

IDispatch* create_ClsDLLTrad() { return new (std::nothrow) ClsDLLTrad; }

}  // namespace velmosav
