// Records and arrays of records as a host holds them, and their comparison field by field.
#pragma once

#include "records/record.h"
#include "records/record_array.h"
#include "support/host.h"

namespace host {

/// A zeroed record that frees what it holds.
template <class T>
class Record {
 public:
  Record() = default;
  ~Record() { velmosav::clear(value_); }
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;
  Record(Record&& other) noexcept : value_(std::exchange(other.value_, T{})) {}

  T* operator->() { return &value_; }
  const T* operator->() const { return &value_; }
  T& operator*() { return value_; }
  const T& operator*() const { return value_; }
  operator T*() { return &value_; }

 private:
  T value_{};
};

/// Dimensions a field of record type 0..count-1 (or from another lower bound), zeroed, without record
/// information.
SAFEARRAY* make_array(unsigned element_size, unsigned long count, long lower = 0);

template <class T>
void dimension(SAFEARRAY*& field, unsigned long count, long lower = 0) {
  velmosav::destroy_record_array(field, velmosav::layout_of<T>());
  field = make_array(sizeof(T), count, lower);
}

/// Element of a one-dimensional array, by position from the lower bound.
template <class T>
T& element(SAFEARRAY* array, unsigned long index) {
  return static_cast<T*>(array->pvData)[index];
}

/// A deep copy, arrays included (object references are shared and counted).
void deep_copy(const velmosav::RecordLayout& layout, const void* source, void* target);

template <class T>
Record<T> snapshot(const T& record) {
  Record<T> copy;
  deep_copy(velmosav::layout_of<T>(), &record, &*copy);
  return copy;
}

/// The fields in which two records differ, as paths such as "TabCadFact(2).DateFin: 01/02/25 / 02/02/25".
/// A null text equals an empty one; an array that was never dimensioned differs from one of no element.
std::vector<std::string> differences(const velmosav::RecordLayout& layout, const void* left,
                                     const void* right);

template <class T>
std::vector<std::string> differences(const T& left, const T& right) {
  return differences(velmosav::layout_of<T>(), &left, &right);
}

}  // namespace host
