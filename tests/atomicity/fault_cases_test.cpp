// Each fault of the cases is made to happen: the host's records, grids and variables hold what the table
// says.
#include <iterator>
#include <map>

#include "atomicity/fault_case.h"
#include "atomicity/report.h"

namespace atomicity {

void PrintTo(const FaultCase& fault, std::ostream* stream) {
  *stream << host::utf8(fault.class_name) << "." << host::utf8(fault.method) << ": " << fault.fault;
}

namespace {

std::vector<FaultCase> all_faults() {
  std::vector<FaultCase> all;
  for (const auto list : {document_faults, schedule_faults, contract_faults, date_faults, amount_faults,
                          tool_faults, invoice_faults}) {
    auto some = list();
    std::move(some.begin(), some.end(), std::back_inserter(all));
  }
  return all;
}

class Atomicity : public ::testing::TestWithParam<FaultCase> {};

TEST_P(Atomicity, LeavesWhatTheTableSays) {
  const FaultCase& fault = GetParam();
  const Method* method = method_named(fault.class_name, fault.method);
  ASSERT_NE(nullptr, method) << "the method is not in the list";
  EXPECT_TRUE(method->leaves || fault.changed.empty()) << "the list says that nothing changes";

  World world;
  // A state that is taken back afterwards is compared without it.
  if (fault.mend) world.remember();
  if (fault.spoil) fault.spoil(world);
  if (!fault.mend) world.remember();
  host::take_error();
  const HRESULT code = fault.call(world);
  EXPECT_EQ(hresult_of(fault.code), code) << std::hex << static_cast<unsigned long>(code);
  EXPECT_NE(L"", host::take_error().description);
  if (fault.mend) fault.mend(world);

  EXPECT_EQ(fault.changed, world.differences());
  EXPECT_TRUE(world.results_are_empty());
  if (HasFailure()) return;
  report(fault.class_name, fault.method, fault.fault,
         fault.code > 0 ? std::to_string(fault.code) : "of the called object", !fault.changed.empty());
}

std::string name_of(const ::testing::TestParamInfo<FaultCase>& tested) {
  static std::map<std::string, int> used;
  const std::string method = host::utf8(tested.param.class_name) + "_" + host::utf8(tested.param.method);
  return method + "_" + std::to_string(++used[method]);
}

INSTANTIATE_TEST_SUITE_P(Faults, Atomicity, ::testing::ValuesIn(all_faults()), name_of);

}  // namespace
}  // namespace atomicity
