// What a record is made of: one table per record, built from the lists of the published contract.
//
// Copying, clearing and comparing a record goes through these tables, never through IRecordInfo: the
// platform's record functions lose nested records and array fields on one of the systems the library runs on.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <span>

namespace velmosav {

enum class FieldKind : unsigned char {
  Byte,
  Integer,
  Boolean,
  Long,
  Double,
  Currency,
  Text,
  Object,
  Record,     // one or several records embedded by value
  TextArray,  // dynamic arrays
  ObjectArray,
  VariantArray,
  RecordArray,
};

struct RecordLayout;

struct FieldLayout {
  const wchar_t* name;
  FieldKind kind;
  unsigned offset;
  const RecordLayout* record;  // of Record and RecordArray
  unsigned count;              // of a fixed table, else 1
};

struct RecordLayout {
  const wchar_t* name;
  GUID id;
  unsigned size;
  std::span<const FieldLayout> fields;
};

template <class Record>
const RecordLayout& layout_of() noexcept;

#define RECORD_BEGIN(name, identifier, help) \
  template <>                                \
  const RecordLayout& layout_of<::name>() noexcept;
#include "records/without_fields.h"
#include "records.def"

/// The table of a record known by its identifier; null for another.
const RecordLayout* layout_by_id(const GUID& id) noexcept;

/// Every record of the contract, in the order of the lists.
std::span<const RecordLayout* const> all_layouts() noexcept;

}  // namespace velmosav
