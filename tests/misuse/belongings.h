// What a host owns after a call: every text, array and record is looked at, then freed, whatever the library
// has put there.
#pragma once

#include <string>
#include <vector>

#include "records/layout.h"

namespace misuse {

/// What stands in a variable of the host, for one walk over it.
enum class Holding { Text, Object, Variant, Record, Plain };

/// What elements of a type, or of a field's array, are.
Holding holding_of(VARTYPE element);
Holding holding_of(velmosav::FieldKind kind);

/// What stands in an array.
struct Elements {
  Holding holding = Holding::Plain;
  const velmosav::RecordLayout* layout = nullptr;
};
/// As the array itself says, or as its owner knows where it says nothing.
Elements elements_of(const SAFEARRAY* array, Holding holding = Holding::Plain,
                     const velmosav::RecordLayout* layout = nullptr);
/// None without data.
unsigned long element_count(const SAFEARRAY* array);

/// The arrays that the host itself has locked.
struct LockedArrays {
  std::vector<const SAFEARRAY*> arrays;

  [[nodiscard]] bool contains(const SAFEARRAY* array) const;
};

/// The first thing that is not as a host may expect it: "a text is no living block", "an array is left
/// locked"... Empty when all is well.
std::string damage_of(const VARIANT& value, const LockedArrays& locked);
std::string damage_of(BSTR text);
std::string damage_of(const SAFEARRAY* array, const LockedArrays& locked);
std::string damage_of(const velmosav::RecordLayout& layout, const void* record, const LockedArrays& locked);

/// Frees what a variable holds, locked arrays and nested records included, and empties it.
void scrap(VARIANT& value);
/// `holding` and `layout` say what the elements are where the array itself does not.
void scrap_array(SAFEARRAY* array, Holding holding, const velmosav::RecordLayout* layout);
void scrap_record(const velmosav::RecordLayout& layout, void* record);

}  // namespace misuse
