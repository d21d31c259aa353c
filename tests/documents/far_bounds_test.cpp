// Arrays whose bounds stand at the limits of 32 bits: counts and walks from index 0 answer as for any other
// array that has no element 0.
#include <limits>

#include "documents/object_array.h"
#include "support/arguments.h"

namespace host {
namespace {

constexpr long kLowest = std::numeric_limits<long>::min();
constexpr long kHighest = std::numeric_limits<long>::max();

class FarBounds : public ::testing::Test {
 protected:
  /// A schedule of `count` rows from `lower`.
  void schedule(unsigned long count, long lower) {
    dimension<Type_CadencierFact>(contract_->TabCadFact, count, lower);
  }
  short count_of_schedule() {
    short count = 0;
    EXPECT_EQ(S_OK, contracts_->NbrCadFact(contract_, &count));
    return count;
  }

  ComPtr<_ContratDoc> contracts_ = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract_;
};

TEST_F(FarBounds, AreNoCount) {
  for (const auto& [count, lower] :
       {std::pair{1UL, kHighest}, {2UL, kHighest}, {0UL, kLowest}, {3UL, kLowest}}) {
    schedule(count, lower);
    EXPECT_EQ(-1, count_of_schedule()) << count << " rows from " << lower;
  }
}

TEST_F(FarBounds, RowsAboveTheLastIndex_AreFault9ForAWalkFromZero) {
  for (const unsigned long count : {1UL, 2UL, 3UL}) {
    schedule(count, kHighest);
    const auto before = snapshot(*contract_);
    short rows = 0;
    EXPECT_TRUE(is_fault(contracts_->NbrCadFactFacture(contract_, &rows), 9, L"ContratDoc")) << count;
    Text date;
    EXPECT_TRUE(
        is_fault(contracts_->GetLastDatePeriode(contract_, VARIANT_FALSE, Text(), &date), 9, L"ContratDoc"))
        << count;
    EXPECT_EQ(std::vector<std::string>{}, differences(*before, *contract_));
  }
}

TEST_F(FarBounds, RowsBelowZero_AreNoneForAWalkFromZero) {
  for (const unsigned long count : {0UL, 3UL}) {
    schedule(count, kLowest);
    short rows = -1;
    EXPECT_EQ(S_OK, contracts_->NbrCadFactFacture(contract_, &rows));
    EXPECT_EQ(0, rows);
    Text date;
    EXPECT_EQ(S_OK, contracts_->GetLastDatePeriode(contract_, VARIANT_FALSE, Text(L"05/03/2025"), &date));
    EXPECT_EQ(L"05/03/2025", date.str());
  }
}

TEST_F(FarBounds, ObjectsAboveTheLastIndex_AreFault9AndKept) {
  const auto orders = create<_Bon>(L"Bon");
  Objects objects(2);
  SAFEARRAY* array = objects.array_of({{2, kHighest}});
  EXPECT_TRUE(is_fault(orders->RazTabApp(&array), 9, L"Bon"));
  ASSERT_NE(nullptr, array);
  EXPECT_EQ((std::vector<long>{2, 2}), objects.references());
  free_objects(array, 2);
}

}  // namespace
}  // namespace host
