#include "records/record_info.h"

#include <algorithm>
#include <vector>

#include "automation/fault.h"
#include "automation/module.h"

namespace velmosav {
namespace {

struct Entry {
  GUID record;
  ComPtr<IRecordInfo> info;
};

std::vector<Entry>& cache() {
  static std::vector<Entry> entries;
  return entries;
}

void release_cache() noexcept { std::vector<Entry>().swap(cache()); }

ComPtr<IRecordInfo> cached(const GUID& record) {
  const module::CacheLock guard;
  const auto found = std::find_if(cache().begin(), cache().end(),
                                  [&](const Entry& entry) { return entry.record == record; });
  return found == cache().end() ? nullptr : found->info;
}

}  // namespace

ComPtr<IRecordInfo> record_info(const GUID& record) {
  if (auto info = cached(record)) return info;
  const ComPtr<ITypeLib> library = module::type_library();
  ComPtr<ITypeInfo> type;
  check(library->GetTypeInfoOfGuid(record, type.receive()));
  ComPtr<IRecordInfo> info;
  check(GetRecordInfoFromTypeInfo(type.get(), info.receive()));
  const module::CacheLock guard;
  cache().push_back({record, info});
  module::on_idle(release_cache);
  return info;
}

}  // namespace velmosav
