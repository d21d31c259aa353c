// A record none of whose fields is zero: what a method must leave alone shows when it is touched.
#pragma once

#include "records/record.h"

namespace host {

/// Gives every field of a record a value of its own (flags are set), so that a field changed by mistake shows
/// in a comparison. Arrays stay as they are.
void fill_record(const velmosav::RecordLayout& layout, void* record);

template <class T>
void fill(T& record) {
  fill_record(velmosav::layout_of<T>(), &record);
}

}  // namespace host
