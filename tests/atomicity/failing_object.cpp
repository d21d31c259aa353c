#include "atomicity/failing_object.h"

namespace atomicity {
namespace {

using host::Variant;

/// Values that let every method go on to its last call.
Variant plausible(const std::wstring& name) {
  if (name == L"TypeChamp") return Variant(1L);
  if (name == L"ScaleMode") return Variant(3L);
  if (name == L"Valeur" || name == L"DonneeL" || name == L"GetIdentifiant") return host::text_value(L"12,5");
  if (name == L"Format") return host::text_value(L"N;7.2;B");
  if (name == L"hWnd") return Variant(0L);
  return Variant(1L);
}

}  // namespace

FailingObject::FailingObject(std::size_t fails_at) : fails_at_(fails_at) {
  for (const wchar_t* name :
       {L"Width",     L"Height",      L"Caption", L"WordWrap",         L"AutoSize",       L"ForeColor",
        L"Bold",      L"ScaleMode",   L"hWnd",    L"GetColSurvol",     L"GetLigneSurvol", L"GetIdentifiant",
        L"DonneeL",   L"TypeChamp",   L"Valeur",  L"Format",           L"Param",          L"TypeSaisie",
        L"FormatAff", L"AppendChunk", L"AddItem", L"ExecuteFromWindow"}) {
    object_->on_get(name, [this, name](const auto&) {
      count();
      return plausible(name);
    });
    object_->on_put(name, [this](const VARIANT&) { count(); });
  }
  for (const wchar_t* name : {L"Container", L"Font", L"CtlPicture"}) {
    object_->on_get(name, [this](const auto&) {
      count();
      return host::object_value(object_.get());
    });
  }
}

void FailingObject::count() const {
  if (object_->log.size() == fails_at_) {
    throw host::FakeObject::Error{kFailure, L"Hote", L"L'objet refuse"};
  }
}

}  // namespace atomicity
