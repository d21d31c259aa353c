// A typed view of an array that belongs to the host, with checked access.
#pragma once

#include <algorithm>
#include <limits>

#include "automation/array.h"
#include "automation/fault.h"
#include "records/record_array.h"

namespace velmosav {

/// One-dimensional array of elements of type T (VARIANT or a record), borrowed from the host for the length
/// of a call.
template <class T>
class ArrayView {
 public:
  /// Fault 9 for an array of several dimensions, 13 for one of another element size or type, or of records of
  /// another kind.
  explicit ArrayView(const SAFEARRAY* array) {
    if (!upper_bound(array)) return;
    if (array->cDims != 1) raise(Fault::SubscriptOutOfRange);
    if (!may_hold<T>(array)) raise(Fault::TypeMismatch);
    elements_ = static_cast<T*>(array->pvData);
    lower_ = array->rgsabound[0].lLbound;
    length_ = array->rgsabound[0].cElements;
    // Held to what a walk from either end can count with.
    constexpr long kMost = std::numeric_limits<long>::max();
    end_ = static_cast<long>(std::clamp<long long>(lower_ + length_, -kMost, kMost));
  }

  [[nodiscard]] long begin() const noexcept { return static_cast<long>(lower_); }
  /// Upper bound + 1: the end of a walk from index 0; 0 when never dimensioned.
  [[nodiscard]] long end() const noexcept { return end_; }

  /// Fault 9 outside the bounds.
  T& operator[](long index) const {
    const long long place = index - lower_;
    if (place < 0 || place >= length_) raise(Fault::SubscriptOutOfRange);
    return elements_[place];
  }

 private:
  T* elements_ = nullptr;
  long long lower_ = 0;
  long long length_ = 0;
  long end_ = 0;
};

}  // namespace velmosav
