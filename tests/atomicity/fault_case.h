// One way in which a method fails, and what that leaves of the host's variables.
#pragma once

#include <functional>

#include "atomicity/world.h"

namespace atomicity {

struct FaultCase {
  const wchar_t* class_name;
  const wchar_t* method;
  /// For the report: "an end date that is no date".
  const char* fault;
  /// A run-time fault's number, or a whole HRESULT.
  long code;
  std::function<HRESULT(World&)> call;
  /// What is wrong with the world before the call; locks taken here are given back by `mend`.
  std::function<void(World&)> spoil = {};
  std::function<void(World&)> mend = {};
  /// Everything that the fault changes, as World::differences names it: nothing when empty.
  std::vector<std::string> changed = {};
};

void PrintTo(const FaultCase& fault, std::ostream* stream);

/// The cases of a subject.
std::vector<FaultCase> document_faults();
std::vector<FaultCase> contract_faults();
std::vector<FaultCase> schedule_faults();
std::vector<FaultCase> date_faults();
std::vector<FaultCase> amount_faults();
std::vector<FaultCase> tool_faults();
std::vector<FaultCase> invoice_faults();

/// The HRESULT of a case's code.
inline HRESULT hresult_of(long code) {
  return code > 0 ? static_cast<HRESULT>(0x800A0000UL + static_cast<unsigned long>(code)) : code;
}

/// One instance of each class for the whole program.
template <class Interface>
Interface* shared(const wchar_t* class_name) {
  static auto* const instance = new ComPtr<Interface>(host::create<Interface>(class_name));
  return instance->get();
}
inline _ContratDoc* contracts() { return shared<_ContratDoc>(L"ContratDoc"); }
inline _Outil* tools() { return shared<_Outil>(L"Outil"); }
inline _Periodicite* rules() { return shared<_Periodicite>(L"Periodicite"); }
inline _Couverture* coverages() { return shared<_Couverture>(L"Couverture"); }
inline _Bon* orders() { return shared<_Bon>(L"Bon"); }
inline _Intervention* interventions() { return shared<_Intervention>(L"Intervention"); }
inline _TvaRepart* distributions() { return shared<_TvaRepart>(L"TvaRepart"); }
inline _InvoiceXMLLib* invoices() { return shared<_InvoiceXMLLib>(L"InvoiceXMLLib"); }
inline _Generation* generations() { return shared<_Generation>(L"Generation"); }
inline _Reconduction* renewals() { return shared<_Reconduction>(L"Reconduction"); }

/// An argument that is left out.
inline VARIANT left_out() {
  VARIANT value{};
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

/// Spoilers of an array, and their mending.
inline void lock(SAFEARRAY* array) { SafeArrayLock(array); }
inline void unlock(SAFEARRAY* array) { SafeArrayUnlock(array); }

}  // namespace atomicity
