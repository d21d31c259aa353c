// The public variables of every class: type and value at creation, by name and through the vtable; assignment
// to one instance only.
#include <algorithm>
#include <iterator>

#include "contract/constant_access.h"

namespace contract {
namespace {

std::vector<Class> classes_with_variables() {
  std::vector<Class> some;
  std::copy_if(classes().begin(), classes().end(), std::back_inserter(some),
               [](const Class& entry) { return !entry.constants.empty(); });
  return some;
}

using Read = host::Variant (Instance::*)(std::size_t) const;
using Write = HRESULT (Instance::*)(std::size_t, const VARIANT&);

class Variables : public ::testing::TestWithParam<Class> {
 protected:
  void SetUp() override { ASSERT_TRUE(instance_.is_ready()); }

  void expect_initial_values(const Instance& instance, Read read) const {
    for (std::size_t i = 0; i < constants_.size(); ++i) {
      EXPECT_TRUE(same(to_variant(constants_[i].initial).get(), (instance.*read)(i).get()))
          << utf8(constants_[i].name);
    }
  }

  void assign_all(Write write) {
    for (std::size_t i = 0; i < constants_.size(); ++i) {
      EXPECT_EQ(S_OK, (instance_.*write)(i, other_than(constants_[i].initial, i).get()))
          << utf8(constants_[i].name);
    }
  }

  /// Read after all were assigned: two members that shared a value would show.
  void expect_assigned_values(Read read) const {
    for (std::size_t i = 0; i < constants_.size(); ++i) {
      EXPECT_TRUE(same(other_than(constants_[i].initial, i).get(), (instance_.*read)(i).get()))
          << utf8(constants_[i].name);
    }
  }

  std::span<const Constant> constants_ = GetParam().constants;
  Instance instance_{GetParam()};
};

TEST_P(Variables, AtCreation_ReadByName_HoldTheirInitialValues) {
  expect_initial_values(instance_, &Instance::read_late);
}

TEST_P(Variables, AtCreation_ReadThroughTheirSlots_HoldTheirInitialValues) {
  expect_initial_values(instance_, &Instance::read_early);
}

TEST_P(Variables, AssignedByName_HoldTheNewValuesBothWays) {
  assign_all(&Instance::write_late);
  expect_assigned_values(&Instance::read_late);
  expect_assigned_values(&Instance::read_early);
}

TEST_P(Variables, AssignedThroughTheirSlots_HoldTheNewValuesBothWays) {
  assign_all(&Instance::write_early);
  expect_assigned_values(&Instance::read_early);
  expect_assigned_values(&Instance::read_late);
}

TEST_P(Variables, AssignedInOneInstance_StayAsTheyWereInAnotherAndInALaterOne) {
  const Instance earlier(GetParam());
  assign_all(&Instance::write_late);
  const Instance later(GetParam());
  ASSERT_TRUE(earlier.is_ready() && later.is_ready());
  expect_initial_values(earlier, &Instance::read_early);
  expect_initial_values(later, &Instance::read_early);
}

TEST_P(Variables, AssignedAlone_LeavesAllOthers) {
  for (std::size_t assigned = 0; assigned < constants_.size(); ++assigned) {
    const host::Variant initial = to_variant(constants_[assigned].initial);
    ASSERT_EQ(S_OK,
              instance_.write_early(assigned, other_than(constants_[assigned].initial, assigned).get()));
    for (std::size_t i = 0; i < constants_.size(); ++i) {
      if (i == assigned) continue;
      ASSERT_TRUE(same(to_variant(constants_[i].initial).get(), instance_.read_early(i).get()))
          << utf8(constants_[assigned].name) << " changes " << utf8(constants_[i].name);
    }
    ASSERT_EQ(S_OK, instance_.write_early(assigned, initial.get()));
  }
}

INSTANTIATE_TEST_SUITE_P(, Variables, ::testing::ValuesIn(classes_with_variables()), name_of_case<Class>);

}  // namespace
}  // namespace contract
