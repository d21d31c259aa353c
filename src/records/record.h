// Clearing, copying and comparing the host's records.
#pragma once

#include "records/layout.h"

namespace velmosav {

/// Frees what the record's fields own (texts, objects, arrays, nested records) and zeroes them.
void clear_record(const RecordLayout& layout, void* record) noexcept;

/// The same for a record known by its identifier; nothing is done for an unknown one.
void clear_record(const GUID& id, void* record) noexcept;

/// Fault 10 when one of the record's arrays, at any depth, is locked or of fixed size.
void require_unlocked(const RecordLayout& layout, const void* record);

/// Copies a record of plain fields, texts and nested records over another; the former content is freed.
/// When memory lacks the target is as it was. Records with dynamic arrays are never copied.
void copy_record(const RecordLayout& layout, const void* source, void* target);

/// A zeroed record of the library's own, freed unless it is handed over.
template <class Record>
class OwnedRecord {
 public:
  OwnedRecord() = default;
  OwnedRecord(OwnedRecord&& other) noexcept : value_(other.detach()) {}
  OwnedRecord& operator=(OwnedRecord&&) = delete;
  ~OwnedRecord() { clear_record(layout_of<Record>(), &value_); }

  [[nodiscard]] Record& get() noexcept { return value_; }
  /// Gives the record's content up to the caller.
  [[nodiscard]] Record detach() noexcept {
    const Record value = value_;
    value_ = Record{};
    return value;
  }

 private:
  Record value_{};
};

template <class Record>
void clear(Record& record) noexcept {
  clear_record(layout_of<Record>(), &record);
}

template <class Record>
void copy(const Record& source, Record& target) {
  copy_record(layout_of<Record>(), &source, &target);
}

}  // namespace velmosav
