// The records, with each field's place in the generated C++ header beside its name and type.
#pragma once

#include <VelmoSAV_DLL14.h>

#include <cstddef>

#include "contract/published.h"

/// A field of the record that `Layout` names.
#define FIELD(name, type) \
  Field { L## #name, type, offsetof(Layout, name), sizeof(Layout::name) }

namespace contract {

std::vector<Record> shared_records();
std::vector<Record> work_order_records();
std::vector<Record> trade_records();
std::vector<Record> contract_records();

}  // namespace contract
