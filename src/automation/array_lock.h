// An array of the host's that must be neither erased nor re-dimensioned while the host's own code may run.
#pragma once

#include "automation/fault.h"

namespace velmosav {

/// Locked as long as the object lives; an array that was never dimensioned needs no lock.
class ArrayLock {
 public:
  explicit ArrayLock(SAFEARRAY* array) : array_(array) {
    if (array_) check_conversion(SafeArrayLock(array_));
  }
  ~ArrayLock() {
    if (array_) SafeArrayUnlock(array_);
  }
  ArrayLock(const ArrayLock&) = delete;
  ArrayLock& operator=(const ArrayLock&) = delete;

 private:
  SAFEARRAY* array_;
};

}  // namespace velmosav
