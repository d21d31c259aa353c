// How a literal transcription of an algorithm faults, and the code that the library then answers.
#pragma once

#include <windows.h>

#include <utility>

namespace literal {

/// What a step raises: the number of the run-time's fault.
struct RunTimeFault {
  int number;
};

/// S_OK, or the failure code of the fault that the steps raise.
template <class Steps>
HRESULT outcome_of(Steps&& steps) {
  try {
    std::forward<Steps>(steps)();
    return S_OK;
  } catch (const RunTimeFault& fault) {
    return static_cast<HRESULT>(0x800A0000UL + static_cast<unsigned long>(fault.number));
  }
}

}  // namespace literal
