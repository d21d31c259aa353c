// The list of methods against the type library, and against the faults that the other tests made happen.
#include <set>

#include "atomicity/report.h"
#include "misuse/interface_table.h"

namespace atomicity {

namespace {

using Names = std::set<std::wstring>;

TEST(AtomicityList, NamesEveryMethodOfTheTypeLibraryOnceAndNoOther) {
  Names published, listed;
  for (const misuse::Class& tested : misuse::classes()) {
    for (const misuse::Member& member : tested.members) {
      if (member.kind == INVOKE_FUNC) published.insert(tested.name + L"." + member.name);
    }
  }
  for (const Method& method : methods()) {
    EXPECT_TRUE(listed.insert(std::wstring(method.class_name) + L"." + method.name).second)
        << host::utf8(method.name);
  }
  EXPECT_EQ(published, listed);
  EXPECT_GT(listed.size(), 80u);
}

/// At the program's end: each method has shown what its entry says. Nothing is said of a part of the tests.
class AtomicityTable : public ::testing::Environment {
  void TearDown() override {
    const ::testing::UnitTest& program = *::testing::UnitTest::GetInstance();
    if (program.test_to_run_count() != program.total_test_count()) return;
    for (const Method& method : methods()) {
      EXPECT_TRUE(was_reported(method, false)) << "no fault of " << method_name(method);
      EXPECT_EQ(method.leaves != nullptr, was_reported(method, true))
          << method_name(method) << ": the list says that something remains, and no fault has shown it";
    }
    write_report();
  }

  static std::string method_name(const Method& method) {
    return host::utf8(method.class_name) + "." + host::utf8(method.name);
  }
};

const auto* const kTable = ::testing::AddGlobalTestEnvironment(new AtomicityTable);

}  // namespace
}  // namespace atomicity
