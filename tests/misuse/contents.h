// What stands in the host's variables, so that a call that must leave them alone can be seen to do so.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "records/layout.h"

namespace misuse {

/// The contents of a variable at one time: every text, array and nested record, by content and by place.
class Contents {
 public:
  explicit Contents(const VARIANT& value);
  Contents(const velmosav::RecordLayout& layout, const void* record);

  /// The first field that is not as it was, or "its value"; empty when all is.
  [[nodiscard]] std::string change_to(const Contents& later) const;

 private:
  std::vector<std::uint64_t> parts_;  // one for each field of a record
  const velmosav::RecordLayout* layout_ = nullptr;
};

/// Whether the list of what faults leave behind (atomicity/methods.def) says: nothing.
bool is_unchanged_by_faults(const std::wstring& class_name, const std::wstring& method);

}  // namespace misuse
