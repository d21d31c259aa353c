// The one place where a failure becomes an HRESULT: every method of every class runs its logic through here.
// Beside it only `attempt` (automation/attempt.h) catches, to skip a failure; a lint check refuses any other
// `catch`.
//
//   HRESULT ContratDoc::NbrCadFact(Type_Contrat* Contrat, short* Resultat) {
//     return answer(Resultat, [&] { return count_of(required(Contrat).TabCadFact); });
//   }
#pragma once

#include <type_traits>

#include "automation/fault.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "records/record.h"

namespace velmosav {

/// Turns the exception in flight into an HRESULT and sets the thread's error information
/// (source "VelmoSAV_DLL14.<Class>", French text; a called object's own information is passed on).
HRESULT report_failure(const wchar_t* class_name) noexcept;

/// Runs `body`; what it throws comes back as an HRESULT.
template <class Body>
HRESULT boundary(const wchar_t* class_name, Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return report_failure(class_name);
  }
}

/// The record or variable that the host passes by reference; E_POINTER when the address is null.
template <class T>
T& required(T* argument) {
  if (!argument) raise(E_POINTER);
  return *argument;
}

/// The object in a variable of the host, held while the call lasts: the host may let go of it meanwhile.
inline ComPtr<IDispatch> held(IDispatch** variable) { return ComPtr<IDispatch>::copy(required(variable)); }

/// How a result of the logic is stored where the host awaits it.
inline void store(BSTR* place, Bstr text) noexcept { *place = text.detach(); }
inline void store(VARIANT_BOOL* place, bool value) noexcept { *place = to_variant_bool(value); }
inline void store(IDispatch** place, ComPtr<IDispatch> object) noexcept { *place = object.detach(); }
inline void store(VARIANT* place, Variant value) noexcept { *place = value.detach(); }
template <class Record>
void store(Record* place, OwnedRecord<Record> record) noexcept {
  *place = record.detach();
}
template <class T>
requires std::is_trivially_copyable_v<T>
void store(T* place, const T& value) noexcept { *place = value; }

/// A method with a result: the result is cleared first and set only when `body` succeeds.
template <class Result, class Body>
HRESULT answer(const wchar_t* class_name, Result* result, Body&& body) noexcept {
  return boundary(class_name, [&] {
    required(result) = Result{};
    store(result, body());
  });
}

}  // namespace velmosav
