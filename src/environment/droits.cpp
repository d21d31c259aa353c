// A user's right on a document type.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Droits final : public ClassObject<::_Droits> {
 public:
  HRESULT STDMETHODCALLTYPE GetDroitByTypeDoc(BSTR, VARIANT_BOOL, short*) noexcept override {
    return not_available();
  }
};

}  // namespace

IDispatch* create_Droits() { return new (std::nothrow) Droits; }

}  // namespace velmosav
