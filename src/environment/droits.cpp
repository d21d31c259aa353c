// A user's right on a document type.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

/// The right to create or change a document of a type, or else to delete it; -1 for a type without a right of
/// its own.
short right_of(std::wstring_view document_type, bool change) {
  const GeneralConstants& general = initial<GeneralConstants>;
  if (document_type == general.m_c_sTypDoc_Ctt.view()) {
    return change ? DroitSAV_PC_DROIT_CTT : DroitSAV_PC_DROIT_CTTSUP;
  }
  if (document_type == general.m_c_sTypDoc_Prop.view()) {
    return change ? DroitSAV_PC_DROIT_PROP : DroitSAV_PC_DROIT_PROPSUP;
  }
  if (document_type == general.m_c_sTypDoc_Interv.view()) {
    return change ? DroitSAV_PC_DROIT_INT : DroitSAV_PC_DROIT_INTSUP;
  }
  return -1;
}

class Droits final : public ClassObject<::_Droits> {
 public:
  HRESULT STDMETHODCALLTYPE GetDroitByTypeDoc(BSTR TypeDoc, VARIANT_BOOL FlagAjt,
                                              short* Resultat) noexcept override {
    return answer(Resultat, [&] { return right_of(view(TypeDoc), FlagAjt != VARIANT_FALSE); });
  }
};

}  // namespace

IDispatch* create_Droits() { return new (std::nothrow) Droits; }

}  // namespace velmosav
