#include "misuse/odd_object.h"

#include <algorithm>

#include "misuse/odd_numbers.h"
#include "support/error_information.h"

namespace misuse {
namespace {

constexpr std::size_t kMostObjects = 24;

/// Failures that a host's object answers without more words.
constexpr HRESULT kFailures[]{
    E_FAIL,
    E_UNEXPECTED,
    E_NOTIMPL,
    E_ACCESSDENIED,
    E_INVALIDARG,
    E_OUTOFMEMORY,
    static_cast<HRESULT>(0x80010108),  // the object has disconnected from its clients
    static_cast<HRESULT>(0x800A01A8),
    DISP_E_MEMBERNOTFOUND,
    DISP_E_TYPEMISMATCH,
    DISP_E_PARAMNOTOPTIONAL,
    DISP_E_EXCEPTION};

/// Names are numbered in the order in which they are first asked for.
std::vector<std::wstring>& known_names() {
  static auto* const names = new std::vector<std::wstring>;
  return *names;
}

void leave_error_information(Dice& dice) {
  const wchar_t* description = nullptr;
  if (dice.coin()) description = dice.coin() ? L"refus de l'objet" : L"";
  host::leave_error(dice.coin() ? L"hote" : nullptr, description);
}

HRESULT STDMETHODCALLTYPE fill_in_late(EXCEPINFO* exception) {
  exception->bstrDescription = SysAllocString(L"raison tardive");
  exception->scode = E_FAIL;
  return S_OK;
}

}  // namespace

bool OddObject::alive(const char* use) {
  if (references_ > 0) return true;
  host_->report(use);
  return false;
}

HRESULT OddObject::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (!alive("an object is asked for an interface after its last release")) return E_UNEXPECTED;
  if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  ++references_;
  return S_OK;
}

ULONG OddObject::AddRef() {
  alive("an object is held again after its last release");
  return static_cast<ULONG>(++references_);
}

ULONG OddObject::Release() {
  if (!alive("an object is released more often than held")) return 0;
  return static_cast<ULONG>(--references_);
}

HRESULT OddObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT OddObject::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

HRESULT OddObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  *ids = DISPID_UNKNOWN;
  if (!alive("an object is asked for a name after its last release")) return E_UNEXPECTED;
  Dice& dice = host_->dice();
  if (dice.one_in(40)) return DISP_E_UNKNOWNNAME;
  if (dice.one_in(100)) {
    if (dice.coin()) leave_error_information(dice);
    return dice.of(kFailures);
  }
  auto& known = known_names();
  const auto place = std::find(known.begin(), known.end(), names[0]);
  *ids = static_cast<DISPID>(place - known.begin()) + 1;
  if (place == known.end()) known.emplace_back(names[0]);
  return S_OK;
}

HRESULT OddObject::raise(EXCEPINFO* exception) {
  Dice& dice = host_->dice();
  if (!exception) return DISP_E_EXCEPTION;
  *exception = {};
  switch (dice.below(6)) {
    case 0:
      break;
    case 1:
      exception->wCode = static_cast<WORD>(1 + dice.below(1000));
      break;
    case 2:
      exception->pfnDeferredFillIn = fill_in_late;
      break;
    case 3:
      exception->scode = S_FALSE;
      exception->bstrDescription = SysAllocString(L"");
      break;
    default:
      exception->scode = dice.of(kFailures);
      exception->bstrSource = SysAllocString(L"hote");
      exception->bstrDescription = dice.coin() ? SysAllocString(L"refus de l'objet") : nullptr;
      exception->bstrHelpFile = dice.coin() ? SysAllocString(L"hote.hlp") : nullptr;
  }
  return DISP_E_EXCEPTION;
}

HRESULT OddObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                          EXCEPINFO* exception, UINT*) {
  if (!alive("an object is used after its last release")) return E_UNEXPECTED;
  Dice& dice = host_->dice();
  const auto& known = known_names();
  const std::wstring name =
      id >= 1 && static_cast<std::size_t>(id) <= known.size() ? known[static_cast<std::size_t>(id) - 1] : L"";
  // What is read a hundred times fails less often, or nothing would come of it.
  const std::size_t trouble = dice.below(name == L"EnrTva" ? 120 : name == L"GetTraduction_EXE" ? 400 : 24);
  if (trouble == 0) return raise(exception);
  if (trouble == 1) {
    if (dice.coin()) leave_error_information(dice);
    return dice.of(kFailures);
  }
  if (trouble <= 3) host_->disturb();
  if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF) || !result) return S_OK;
  if (name.empty()) {
    // The default member: the platform does not free what it gets there, so it is a number or nothing.
    result->vt = trouble == 4 ? VT_NULL : VT_R8;
    result->dblVal = odd_double(dice);
  } else if (trouble == 4) {
    result->vt = VT_NULL;
  } else if (trouble <= 6) {
    *result = host_->odd_value();
  } else if (trouble != 7) {
    *result = host_->plausible_value(name);
  }
  return trouble == 8 ? S_FALSE : S_OK;
}

IDispatch* ObjectPool::make() {
  if (objects_.size() == kMostObjects) return nullptr;
  return &objects_.emplace_back(host_);
}

long ObjectPool::outstanding() const {
  long sum = 0;
  for (const OddObject& object : objects_) sum += object.references();
  return sum;
}

}  // namespace misuse
