#include "support/filled_record.h"

#include <cstring>

#include "support/records.h"

namespace host {
namespace {

using velmosav::FieldKind;
using velmosav::FieldLayout;
using velmosav::RecordLayout;

/// Counts the fields of one record, nested ones included.
class Filling {
 public:
  void fill(const RecordLayout& layout, void* record) {
    for (const FieldLayout& field : layout.fields)
      fill_field(field, static_cast<char*>(record) + field.offset);
  }

 private:
  void fill_field(const FieldLayout& field, char* place) {
    ++number_;
    switch (field.kind) {
      case FieldKind::Byte:
        return store(place, static_cast<BYTE>(number_));
      case FieldKind::Integer:
        return store(place, static_cast<short>(number_));
      case FieldKind::Boolean:
        return store(place, VARIANT_TRUE);
      case FieldKind::Long:
        return store(place, static_cast<long>(number_));
      case FieldKind::Double:
        return store(place, number_ + 0.25);
      case FieldKind::Currency:
        return store(place, static_cast<long long>(number_));
      case FieldKind::Text:
        return set(*reinterpret_cast<BSTR*>(place), field.name + std::to_wstring(number_));
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) fill(*field.record, place + i * field.record->size);
        return;
      default:
        return;
    }
  }

  template <class T>
  static void store(char* place, T value) {
    std::memcpy(place, &value, sizeof value);
  }

  int number_ = 0;
};

}  // namespace

void fill_record(const RecordLayout& layout, void* record) { Filling().fill(layout, record); }

}  // namespace host
