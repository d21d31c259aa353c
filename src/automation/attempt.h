// Statements whose failure is skipped: reading a host's object that may lack a member.
#pragma once

#include "automation/fault.h"

namespace velmosav {

/// Runs `statement`; false when it failed. Lack of memory is not skipped.
template <class Statement>
bool attempt(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const Failure& failure) {
    if (failure.code == E_OUTOFMEMORY) throw;
    return false;
  }
}

}  // namespace velmosav
