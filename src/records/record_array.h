// Dynamic arrays that a record holds: erasing and re-dimensioning, by moves of the elements.
#pragma once

#include "automation/array.h"
#include "records/layout.h"

namespace velmosav {

/// Fault 10 when the array is locked or of fixed size, 13 for another element size: what erasing it would
/// raise.
void require_erasable(const SAFEARRAY* array, unsigned long element_size);
/// Frees every element and the array; the field becomes "never dimensioned".
/// Faults as require_erasable; nothing is changed then.
void erase_record_array(SAFEARRAY*& array, const RecordLayout& layout);
/// What an array of plain elements holds.
enum class PlainElement { Text, Object };
/// The same for an array of plain elements, whatever it says of them itself.
void erase_plain_array(SAFEARRAY*& array, PlainElement kind);

/// Sets the bounds 0 to `upper` and keeps the elements: those beyond are freed, new ones are zero.
/// An array that was never dimensioned is made, with record information.
/// Fault 9 for another lower bound or several dimensions, 10 when locked, 13 for another element size.
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
void require_erasable(const SAFEARRAY* array) {
  require_erasable(array, sizeof(Element));
}

/// Frees an array whatever its state; for a record that is being cleared.
void destroy_record_array(SAFEARRAY* array, const RecordLayout& layout) noexcept;

}  // namespace velmosav
