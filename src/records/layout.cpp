#include "records/layout.h"

#include <cstddef>

namespace velmosav {
namespace {

constexpr unsigned hexadecimal(char digit) {
  return static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
}

/// Reads an identifier as the lists write it: F18D4D65-1FD1-42FC-A2A1-B2FBF40B948C.
constexpr GUID identifier_of(const char* text) {
  unsigned bytes[16] = {};
  for (unsigned count = 0; count < 16; text += *text == '-' ? 1 : 2) {
    if (*text != '-') bytes[count++] = hexadecimal(text[0]) * 16 + hexadecimal(text[1]);
  }
  GUID id{};
  id.Data1 = bytes[0] << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3];
  id.Data2 = static_cast<unsigned short>(bytes[4] << 8 | bytes[5]);
  id.Data3 = static_cast<unsigned short>(bytes[6] << 8 | bytes[7]);
  for (int i = 0; i < 8; ++i) id.Data4[i] = static_cast<unsigned char>(bytes[8 + i]);
  return id;
}

template <class Record>
struct Table;

#define RECORD_BEGIN(name, identifier, help)               \
  template <>                                              \
  struct Table<::name> {                                   \
    using Record = ::name;                                 \
    static constexpr GUID id = identifier_of(#identifier); \
    static constexpr const wchar_t* title = L## #name;     \
    static const FieldLayout fields[];                     \
    static const RecordLayout layout;                      \
  };                                                       \
  const FieldLayout Table<::name>::fields[] = {
#define FIELD(type, name, help) {L## #name, FieldKind::type, offsetof(Record, name), nullptr, 1},
#define ENUMERATION_FIELD(enumeration, name, help) \
  {L## #name, FieldKind::Long, offsetof(Record, name), nullptr, 1},
#define RECORD_FIELD(record, name, help) \
  {L## #name, FieldKind::Record, offsetof(Record, name), &Table<::record>::layout, 1},
#define RECORD_TABLE_FIELD(record, name, count, help) \
  {L## #name, FieldKind::Record, offsetof(Record, name), &Table<::record>::layout, count},
#define ARRAY_FIELD(type, name, help) {L## #name, FieldKind::type##Array, offsetof(Record, name), nullptr, 1},
#define RECORD_ARRAY_FIELD(record, name, help) \
  {L## #name, FieldKind::RecordArray, offsetof(Record, name), &Table<::record>::layout, 1},
#define RECORD_END(name) \
  }                      \
  ;                      \
  const RecordLayout Table<::name>::layout = {title, id, sizeof(Record), fields};
#include "records.def"

}  // namespace

#define RECORD_BEGIN(name, identifier, help)         \
  template <>                                        \
  const RecordLayout& layout_of<::name>() noexcept { \
    return Table<::name>::layout;                    \
  }
#include "records/without_fields.h"
#include "records.def"

const RecordLayout* layout_by_id(const GUID& id) noexcept {
  for (const RecordLayout* layout : all_layouts()) {
    if (layout->id == id) return layout;
  }
  return nullptr;
}

std::span<const RecordLayout* const> all_layouts() noexcept {
#define RECORD_BEGIN(name, identifier, help) &Table<::name>::layout,
#include "records/without_fields.h"
  static const RecordLayout* const layouts[] = {
#include "records.def"
  };
  return layouts;
}

}  // namespace velmosav
