// Dynamic arrays that a record holds: erasing and re-dimensioning, by moves of the elements.
#pragma once

#include <type_traits>

#include "automation/array.h"
#include "records/layout.h"

namespace velmosav {

/// What an array of plain elements holds.
enum class PlainElement { Text, Object, Variant };

/// False when the elements have another size, or when the array says itself that they are of another type or
/// records of another kind.
bool may_hold(const SAFEARRAY* array, const RecordLayout& layout) noexcept;
bool may_hold(const SAFEARRAY* array, PlainElement kind) noexcept;

/// What the functions of this file want to know of a type: its kind, or the table of a record.
template <class Element>
decltype(auto) element_description() noexcept {
  if constexpr (std::is_same_v<Element, BSTR>) {
    return PlainElement::Text;
  } else if constexpr (std::is_same_v<Element, IDispatch*>) {
    return PlainElement::Object;
  } else if constexpr (std::is_same_v<Element, VARIANT>) {
    return PlainElement::Variant;
  } else {
    return layout_of<Element>();
  }
}

template <class Element>
bool may_hold(const SAFEARRAY* array) noexcept {
  return may_hold(array, element_description<Element>());
}

/// Fault 10 when the array, or one inside its elements, is locked or of fixed size, 13 for another element
/// size or when the array says itself that its elements are of another type: what erasing it would raise.
void require_erasable(SAFEARRAY* array, const RecordLayout& layout);
void require_erasable(SAFEARRAY* array, PlainElement kind);
/// Fault 10 alone, whatever the elements are.
void require_unlocked(SAFEARRAY* array, const RecordLayout* expected);

/// Frees every element and the array; the field becomes "never dimensioned".
/// Faults as require_erasable; nothing is changed then.
void erase_record_array(SAFEARRAY*& array, const RecordLayout& layout);
void erase_plain_array(SAFEARRAY*& array, PlainElement kind);

/// Sets the bounds 0 to `upper` and keeps the elements: those beyond are freed, new ones are zero.
/// An array that was never dimensioned is made, with record information.
/// Fault 9 for another lower bound or several dimensions, 10 when locked, of fixed size or made as
/// a vector, 13 for another element size.
void redim_preserve(SAFEARRAY*& array, const RecordLayout& layout, long upper);

template <class Record>
void erase(SAFEARRAY*& array) {
  erase_record_array(array, layout_of<Record>());
}

template <class Record>
void redim_preserve(SAFEARRAY*& array, long upper) {
  redim_preserve(array, layout_of<Record>(), upper);
}

template <class Element>
void require_erasable(SAFEARRAY* array) {
  require_erasable(array, element_description<Element>());
}

/// Frees an array whatever it holds; for a record that is being cleared.
void destroy_record_array(SAFEARRAY* array, const RecordLayout& layout) noexcept;
void destroy_plain_array(SAFEARRAY* array, PlainElement kind) noexcept;

}  // namespace velmosav
