// A schedule that the host made as a vector (SafeArrayCreateVectorEx): its rows and its description are one
// block of memory, of fixed size. It is read, written and erased as any other.
#include <cstring>

#include "contracts/contract_fixture.h"
#include "support/allocations.h"

namespace {

using namespace host;

class VectorSchedule : public ::testing::Test {
 protected:
  void SetUp() override { make_vector(contract_->TabCadFact); }

  /// The same rows in a vector that describes its records.
  static void make_vector(SAFEARRAY*& rows) {
    const auto info = record_info<Type_CadencierFact>();
    const ULONG count = rows->rgsabound[0].cElements;
    SAFEARRAY* vector = SafeArrayCreateVectorEx(VT_RECORD, 0, count, info.get());
    ASSERT_NE(nullptr, vector);
    // Moved: the former array keeps nothing to free.
    std::memcpy(vector->pvData, rows->pvData, count * rows->cbElements);
    std::memset(rows->pvData, 0, count * rows->cbElements);
    velmosav::destroy_record_array(std::exchange(rows, vector), velmosav::layout_of<Type_CadencierFact>());
  }

  HRESULT add_at(short index) {
    short result = -99;
    return contracts_->AjouterCadFactCtt(contract_, Text(L"05/04/2025"), Text(L"01/04/2025"),
                                         Text(L"30/04/2025"), &index, &result);
  }

  Contracts contracts_;
  Record<Type_Contrat> contract_ = contract(
      L"01/01/2025", L"31/12/2025",
      {{L"01/01/2025", L"31/01/2025"}, {L"01/02/2025", L"28/02/2025"}, {L"01/03/2025", L"31/03/2025"}});
};

TEST_F(VectorSchedule, IsReadAndWrittenAsAnyOther) {
  EXPECT_EQ(3, contracts_.answer(&_ContratDoc::NbrCadFact, contract_));
  EXPECT_EQ(L"31/03/2025", contracts_.last_end(contract_, false, L""));
  set(row(contract_, 0).DateFin, L"15/01/2025");
  EXPECT_EQ(1, contracts_.spread_end(contract_, 0, L"15/01/2025"));
  EXPECT_EQ(L"16/01/25", get(row(contract_, 1).DateDeb));
}

TEST_F(VectorSchedule, CannotBeReDimensioned_Fault10AndNothingChanges) {
  const auto before = snapshot(*contract_);
  for (const short index : {short{-1}, short{3}, short{2}, short{1}}) {
    EXPECT_TRUE(is_contract_fault(add_at(index), 10)) << index;
  }
  expect_same(*before, *contract_);
}

TEST_F(VectorSchedule, IsErasedWithItsTextsUnlessItSaysThatItsSizeIsFixed) {
  SAFEARRAY*& rows = contract_->TabCadFact;
  rows->fFeatures |= FADF_FIXEDSIZE;
  EXPECT_TRUE(is_contract_fault(contracts_->RazDocCtt(contract_), 10));
  ASSERT_NE(nullptr, rows);
  EXPECT_EQ(L"31/01/2025", get(row(contract_, 0).DateFin));

  const Allocations allocations;
  dimension<Type_CadencierFact>(rows, 2);
  set(row(contract_, 1).DateFin, L"28/02/2025");
  make_vector(rows);
  rows->fFeatures = static_cast<USHORT>(rows->fFeatures & ~FADF_FIXEDSIZE);
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(nullptr, rows);
  EXPECT_EQ(0U, allocations.outstanding());
}

}  // namespace
