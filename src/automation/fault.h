// How a failure travels inside the library: one exception type, thrown anywhere, caught at the boundary
// (object/boundary.h), or by `attempt` (attempt.h) where it is skipped.
//
//   raise(Fault::SubscriptOutOfRange);          a fault of the automation run-time
//   check(document->loadXML(text, &loaded));    a failed call, with the callee's error information
#pragma once

#include "automation/platform.h"

#include "automation/com_ptr.h"

namespace velmosav {

/// Numbers of the automation run-time; a host sees 0x800A0000 + number.
enum class Fault : unsigned short {
#define FAULT(number, name, text) name = number,
#include "automation/faults.def"
};

/// The HRESULT under which a fault crosses the interface.
constexpr HRESULT fault_code(Fault fault) {
  return static_cast<HRESULT>(0x800A0000UL + static_cast<unsigned long>(fault));
}

/// French text of a failure code; a general text for a code that is not the library's own.
const wchar_t* failure_text(HRESULT code) noexcept;

/// What is thrown. `information` is the callee's own error information, when it gave any.
struct Failure {
  HRESULT code;
  ComPtr<IErrorInfo> information;
};

[[noreturn]] void raise(Fault fault);
[[noreturn]] void raise(HRESULT code);

/// Throws a failed HRESULT together with the thread's error information.
[[noreturn]] void raise_call_failure(HRESULT code);
inline void check(HRESULT code) {
  if (FAILED(code)) raise_call_failure(code);
}

/// For before a call: what an earlier one left on the thread must not pass for the words of its failure.
inline void forget_error_information() noexcept { SetErrorInfo(0, nullptr); }

/// Turns a conversion's HRESULT into the run-time's fault: 13 for a type, 6 for an overflow.
void check_conversion(HRESULT code);

/// A floating-point result as the run-time accepts it: fault 6 when it is not finite.
double finite(double value);
/// numerator / denominator, with faults 11 (division by zero) and 6 (overflow, 0 / 0).
double divide(double numerator, double denominator);

}  // namespace velmosav
