// ContratDoc.GetNumSite_Dll and ContratDoc.GetIndByNumSite: site groups are numbered from 1 in array order.
#include "sites/contract_fixture.h"

namespace host {
namespace {

class ContratDocSiteGroups : public ContratDocInterventions {
 protected:
  /// GetNumSite_Dll of every row.
  Numbers numbers(const std::vector<std::wstring>& sites) {
    set_sites(*contract_, sites);
    Numbers found;
    for (short i = 0; i < static_cast<short>(sites.size()); ++i) found.push_back(value_of(site_number(i)));
    return found;
  }
  /// GetIndByNumSite of the groups 1 to `last`.
  Numbers starts(const std::vector<std::wstring>& sites, short last) {
    set_sites(*contract_, sites);
    Numbers found;
    for (short group = 1; group <= last; ++group) found.push_back(value_of(first_of_group(group)));
    return found;
  }
};

TEST_F(ContratDocSiteGroups, GetNumSite_SitesAabbc_OfIndex3Is2) {
  set_sites(*contract_, {L"A", L"A", L"B", L"B", L"C"});
  EXPECT_EQ(2, value_of(site_number(3)));
}

TEST_F(ContratDocSiteGroups, GetNumSite_SitesAabbc_NumbersEveryRowByItsGroup) {
  EXPECT_EQ((Numbers{1, 1, 2, 2, 3}), numbers({L"A", L"A", L"B", L"B", L"C"}));
}

TEST_F(ContratDocSiteGroups, GetNumSite_OneIntervention_IsOne) { EXPECT_EQ(Numbers{1}, numbers({L"A"})); }

TEST_F(ContratDocSiteGroups, GetNumSite_SiteThatComesBack_HasTheNumberOfItsFirstGroup) {
  EXPECT_EQ((Numbers{1, 2, 1, 2, 5}), numbers({L"A", L"B", L"A", L"B", L"C"}));
}

TEST_F(ContratDocSiteGroups, GetNumSite_OuterBlanksDoNotSeparate) {
  EXPECT_EQ((Numbers{1, 1, 1, 2}), numbers({L"A", L" A", L"A  ", L"B"}));
}

TEST_F(ContratDocSiteGroups, GetNumSite_InnerBlanksSeparate) {
  EXPECT_EQ((Numbers{1, 2}), numbers({L"A B", L"AB"}));
}

TEST_F(ContratDocSiteGroups, GetNumSite_CaseSeparates) { EXPECT_EQ((Numbers{1, 2}), numbers({L"A", L"a"})); }

TEST_F(ContratDocSiteGroups, GetNumSite_TabsSeparate) { EXPECT_EQ((Numbers{1, 2}), numbers({L"A", L"A\t"})); }

TEST_F(ContratDocSiteGroups, GetNumSite_RowsWithoutSiteAreAGroup) {
  EXPECT_EQ((Numbers{1, 1, 2, 3}), numbers({L"", L"  ", L"A", L"B"}));
  EXPECT_EQ((Numbers{1, 2, 2, 3}), numbers({L"A", L"", L" ", L"B"}));
}

TEST_F(ContratDocSiteGroups, GetNumSite_IndexOutside_IsFault9) {
  set_sites(*contract_, {L"A", L"B"});
  for (const short index : Numbers{-32768, -1, 2, 32767}) EXPECT_TRUE(faults(site_number(index), 9)) << index;
}

TEST_F(ContratDocSiteGroups, GetNumSite_NoIntervention_IsFault9) {
  EXPECT_TRUE(faults(site_number(0), 9));
  set_sites(*contract_, {});
  EXPECT_TRUE(faults(site_number(0), 9));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_SitesAabbc_Of3Is4) {
  set_sites(*contract_, {L"A", L"A", L"B", L"B", L"C"});
  EXPECT_EQ(4, value_of(first_of_group(3)));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_SitesAabbc_GivesEveryGroupsFirstRow) {
  EXPECT_EQ((Numbers{0, 2, 4}), starts({L"A", L"A", L"B", L"B", L"C"}, 3));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_SiteThatComesBack_IsAGroupOfItsOwn) {
  EXPECT_EQ((Numbers{0, 1, 2}), starts({L"A", L"B", L"A"}, 3));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_OuterBlanksDoNotSeparate) {
  EXPECT_EQ((Numbers{0, 3}), starts({L"A", L" A", L"A ", L"B"}, 2));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_CaseSeparates) {
  EXPECT_EQ((Numbers{0, 1}), starts({L"A", L"a"}, 2));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_BelowOne_IsZero) {
  set_sites(*contract_, {L"A", L"B"});
  for (const short group : Numbers{-32768, -1, 0}) EXPECT_EQ(0, value_of(first_of_group(group))) << group;
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_BelowOneWithoutIntervention_IsZero) {
  EXPECT_EQ(0, value_of(first_of_group(0)));
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_PastTheLastGroup_IsFault9) {
  set_sites(*contract_, {L"A", L"A", L"B"});
  for (const short group : Numbers{3, 4, 32767}) EXPECT_TRUE(faults(first_of_group(group), 9)) << group;
}

TEST_F(ContratDocSiteGroups, GetIndByNumSite_FirstGroupWithoutIntervention_IsFault9) {
  EXPECT_TRUE(faults(first_of_group(1), 9));
  set_sites(*contract_, {});
  EXPECT_TRUE(faults(first_of_group(1), 9));
}

}  // namespace
}  // namespace host
