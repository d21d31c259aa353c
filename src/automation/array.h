// Arrays that belong to the host: bounds, and a typed view with checked access.
//
// Counts follow one rule: upper bound + 1, and -1 for an array that was never dimensioned.
#pragma once

#include "automation/platform.h"

#include <optional>

#include "automation/fault.h"

namespace velmosav {

/// Upper bound of a dimension (1 = first); nothing when never dimensioned or when there is no such dimension.
std::optional<long> upper_bound(const SAFEARRAY* array, unsigned dimension = 1) noexcept;

/// Upper bound + 1; -1 when there is none, or when it does not fit 16 bits.
short count_of(const SAFEARRAY* array, unsigned dimension = 1) noexcept;

/// False when an array says itself that its elements are not of the type. One that says nothing is believed.
bool may_hold(const SAFEARRAY* array, VARTYPE type) noexcept;

/// How an element of an array is typed; a record unless it is a plain one.
template <class T>
inline constexpr VARTYPE element_type = VT_RECORD;
template <>
inline constexpr VARTYPE element_type<VARIANT> = VT_VARIANT;

/// One-dimensional array of elements of type T, borrowed from the host for the length of a call.
template <class T>
class ArrayView {
 public:
  /// Fault 9 for an array of several dimensions, 13 for one of another element size or type.
  explicit ArrayView(SAFEARRAY* array) {
    if (!upper_bound(array)) return;
    if (array->cDims != 1) raise(Fault::SubscriptOutOfRange);
    if (array->cbElements != sizeof(T) || !may_hold(array, element_type<T>)) raise(Fault::TypeMismatch);
    elements_ = static_cast<T*>(array->pvData);
    lower_ = array->rgsabound[0].lLbound;
    length_ = static_cast<long>(array->rgsabound[0].cElements);
  }

  /// Upper bound + 1: the end of a walk from index 0; 0 when never dimensioned.
  [[nodiscard]] long end() const noexcept { return elements_ ? lower_ + length_ : 0; }

  /// Fault 9 outside the bounds.
  T& operator[](long index) const {
    const long long place = static_cast<long long>(index) - lower_;
    if (place < 0 || place >= length_) raise(Fault::SubscriptOutOfRange);
    return elements_[place];
  }

 private:
  T* elements_ = nullptr;
  long lower_ = 0;
  long length_ = 0;
};

/// Fault 10 when the array is locked or of fixed size, so that it can be neither erased nor re-dimensioned.
void require_resizable(const SAFEARRAY* array);

}  // namespace velmosav
