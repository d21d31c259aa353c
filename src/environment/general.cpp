// Document types, provenances, table names and shared constants.
#include <new>

#include "environment/document_types.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

class General final : public ClassObject<::_General> {
 public:
#include "object/constant_properties.h"
#include "constants/General.def"

  HRESULT STDMETHODCALLTYPE GetNomTableByTypeDoc(BSTR TypeDoc, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(table_name_of(constants_, view(TypeDoc))); });
  }

  HRESULT STDMETHODCALLTYPE GetTypeDocByProv(BSTR Provenance, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(document_type_of(constants_, view(Provenance))); });
  }

  HRESULT STDMETHODCALLTYPE GetProvByTypeDocSAV(BSTR TypeDoc, BSTR* Resultat) noexcept override {
    return answer(Resultat, [&] { return Bstr(provenance_of(constants_, view(TypeDoc))); });
  }

  HRESULT STDMETHODCALLTYPE GetFmtSaisDureeUnit(BSTR* sUnit, short* iValtoCmp,
                                                BSTR* Resultat) noexcept override {
    return answer(Resultat,
                  [&] { return duration_input_format(constants_, required(sUnit), required(iValtoCmp)); });
  }

 private:
  GeneralConstants constants_;
};

}  // namespace

IDispatch* create_General() { return new (std::nothrow) General; }

}  // namespace velmosav
