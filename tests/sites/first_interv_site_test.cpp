// ContratDoc.FirstIntervSite: the first intervention of a site group, of the next one or of the previous one.
#include "sites/contract_fixture.h"

namespace host {
namespace {

class ContratDocAabbc : public ContratDocInterventions {
 protected:
  void SetUp() override { set_sites(*contract_, {L"A", L"A", L"B", L"B", L"C"}); }
};

TEST_F(ContratDocAabbc, FirstIntervSite_OfIndex3_Is2) { EXPECT_EQ(2, value_of(own_site(3))); }

TEST_F(ContratDocAabbc, FirstIntervSite_WithSuivOfIndex3_Is4) { EXPECT_EQ(4, value_of(following_site(3))); }

TEST_F(ContratDocAabbc, FirstIntervSite_WithPrecOfIndex3_Is0) { EXPECT_EQ(0, value_of(previous_site(3))); }

TEST_F(ContratDocAabbc, FirstIntervSite_WithPrecOfIndex1_IsMinusOne) {
  EXPECT_EQ(-1, value_of(previous_site(1)));
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithPrecOfIndex0_Is0) { EXPECT_EQ(0, value_of(previous_site(0))); }

TEST_F(ContratDocAabbc, FirstIntervSite_WithPrecOfTheLastGroup_IsTheStartOfTheOneBefore) {
  EXPECT_EQ(2, value_of(previous_site(4)));
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithSuivFromTheFirstRowOfAGroup_IsTheNextStart) {
  EXPECT_EQ(2, value_of(following_site(0)));
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithSuivOnTheLastGroup_IsItsStart) {
  EXPECT_EQ(4, value_of(following_site(4)));
  set_sites(*contract_, {L"A", L"B", L"B", L"B"});
  for (const short index : Numbers{1, 2, 3}) EXPECT_EQ(1, value_of(following_site(index))) << index;
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithBothFlags_GoesForward) {
  VARIANT_BOOL following = VARIANT_TRUE;
  VARIANT_BOOL previous = VARIANT_TRUE;
  EXPECT_EQ(4, value_of(first_of_site(3, following, previous)));
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithBothFlags_SetsTheCallersPrecToFalse) {
  VARIANT_BOOL following = VARIANT_TRUE;
  VARIANT_BOOL previous = VARIANT_TRUE;
  first_of_site(3, following, previous);
  EXPECT_EQ(VARIANT_FALSE, previous);
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithBothFlagsAtTheFirstRow_GoesForward) {
  VARIANT_BOOL following = VARIANT_TRUE;
  VARIANT_BOOL previous = VARIANT_TRUE;
  EXPECT_EQ(2, value_of(first_of_site(0, following, previous)));
}

TEST_F(ContratDocAabbc, FirstIntervSite_WithBothFlagsOfAnIndexPastTheEnd_SetsPrecBeforeTheFault) {
  VARIANT_BOOL following = VARIANT_TRUE;
  VARIANT_BOOL previous = VARIANT_TRUE;
  EXPECT_TRUE(faults(first_of_site(5, following, previous), 9));
  EXPECT_EQ(VARIANT_FALSE, previous);
}

TEST_F(ContratDocAabbc, FirstIntervSite_OfANegativeIndex_Is0WhateverTheFlags) {
  for (const short index : Numbers{-32768, -1}) {
    EXPECT_EQ(0, value_of(own_site(index))) << index;
    EXPECT_EQ(0, value_of(following_site(index))) << index;
    EXPECT_EQ(0, value_of(previous_site(index))) << index;
  }
}

TEST_F(ContratDocAabbc, FirstIntervSite_OfANegativeIndexWithBothFlags_LeavesPrec) {
  VARIANT_BOOL following = VARIANT_TRUE;
  VARIANT_BOOL previous = VARIANT_TRUE;
  EXPECT_EQ(0, value_of(first_of_site(-1, following, previous)));
  EXPECT_EQ(VARIANT_TRUE, previous);
}

TEST_F(ContratDocAabbc, FirstIntervSite_FlagsLeftOut_CountAsFalse) {
  short index = 3;
  short result = 77;
  EXPECT_EQ(S_OK, contracts_->FirstIntervSite(contract_, &index, nullptr, nullptr, &result));
  EXPECT_EQ(2, result);
}

TEST_F(ContratDocAabbc, FirstIntervSite_OneFlagLeftOut_TheOtherDecides) {
  short index = 3;
  short result = 77;
  VARIANT_BOOL flag = VARIANT_TRUE;
  EXPECT_EQ(S_OK, contracts_->FirstIntervSite(contract_, &index, &flag, nullptr, &result));
  EXPECT_EQ(4, result);
  EXPECT_EQ(S_OK, contracts_->FirstIntervSite(contract_, &index, nullptr, &flag, &result));
  EXPECT_EQ(0, result);
  EXPECT_EQ(VARIANT_TRUE, flag);
}

TEST_F(ContratDocAabbc, FirstIntervSite_PastTheLastRow_IsFault9) {
  for (const short index : Numbers{5, 6, 32767}) {
    EXPECT_TRUE(faults(own_site(index), 9)) << index;
    EXPECT_TRUE(faults(following_site(index), 9)) << index;
    EXPECT_TRUE(faults(previous_site(index), 9)) << index;
  }
}

TEST_F(ContratDocInterventions, FirstIntervSite_NoIntervention_IsFault9UnlessAnsweredBefore) {
  EXPECT_TRUE(faults(own_site(0), 9));
  EXPECT_TRUE(faults(following_site(0), 9));
  EXPECT_EQ(0, value_of(previous_site(0)));
  EXPECT_TRUE(faults(previous_site(1), 9));
  EXPECT_EQ(0, value_of(own_site(-1)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_EmptyDimensionedInterventions_IsFault9) {
  set_sites(*contract_, {});
  EXPECT_TRUE(faults(own_site(0), 9));
  EXPECT_TRUE(faults(following_site(0), 9));
}

TEST_F(ContratDocInterventions, FirstIntervSite_GroupStart_ComparesCodesAsWritten) {
  set_sites(*contract_, {L"A", L"A ", L"A ", L"a"});
  EXPECT_EQ(1, value_of(own_site(2)));
  EXPECT_EQ(1, value_of(own_site(1)));
  EXPECT_EQ(3, value_of(own_site(3)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_WithSuiv_SearchesWithoutOuterBlanks) {
  set_sites(*contract_, {L"A", L"A ", L" A", L"B", L"B"});
  EXPECT_EQ(3, value_of(following_site(0)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_WithSuivOnTheLastGroup_StopsWhereTheCodeIsWrittenOtherwise) {
  set_sites(*contract_, {L"B", L"A", L"A", L"A "});
  EXPECT_EQ(3, value_of(following_site(1)));
  set_sites(*contract_, {L"B", L"A", L"A ", L"A "});
  EXPECT_EQ(2, value_of(following_site(1)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_WithSuiv_ComparesCase) {
  set_sites(*contract_, {L"A", L"a", L"a"});
  EXPECT_EQ(1, value_of(following_site(0)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_WithPrec_SearchesWithoutOuterBlanks) {
  set_sites(*contract_, {L"A", L"A", L"B", L"B ", L" B"});
  EXPECT_EQ(0, value_of(previous_site(4)));
  set_sites(*contract_, {L"B", L"B ", L" B"});
  EXPECT_EQ(-1, value_of(previous_site(2)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_WithPrec_StopsAtTheEarlierGroupsCodeAsWritten) {
  set_sites(*contract_, {L"A", L"A ", L"B"});
  EXPECT_EQ(1, value_of(previous_site(2)));
}

TEST_F(ContratDocInterventions, FirstIntervSite_SiteThatComesBack_IsItsNearestGroup) {
  set_sites(*contract_, {L"A", L"B", L"A", L"A", L"C"});
  EXPECT_EQ(2, value_of(own_site(3)));
  EXPECT_EQ(1, value_of(previous_site(3)));
  EXPECT_EQ(4, value_of(following_site(3)));
  EXPECT_EQ(1, value_of(following_site(0)));
}

}  // namespace
}  // namespace host
