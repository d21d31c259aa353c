#include "contract/published_records.h"

namespace contract {

const std::vector<Record>& records() {
  static const std::vector<Record> all = [] {
    std::vector<Record> joined;
    for (auto* part : {shared_records, work_order_records, trade_records, contract_records}) {
      const std::vector<Record> some = part();
      joined.insert(joined.end(), some.begin(), some.end());
    }
    return joined;
  }();
  return all;
}

}  // namespace contract
