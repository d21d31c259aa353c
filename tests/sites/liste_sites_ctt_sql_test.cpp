// ContratDoc.ListeSitesCttSQL: the site codes of a contract for the host's SQL condition.
#include "sites/contract_fixture.h"

namespace host {
namespace {

struct SiteList {
  const char* name;
  std::vector<std::wstring> sites;
  std::wstring list;
};

class ContratDocSiteList : public ContratDocInterventions, public ::testing::WithParamInterface<SiteList> {};

TEST_P(ContratDocSiteList, ListeSitesCttSQL) {
  set_sites(*contract_, GetParam().sites);
  EXPECT_EQ(utf8(GetParam().list), utf8(value_of(site_list())));
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ContratDocSiteList,
    ::testing::Values(
        SiteList{"SitesS1S2S1_AreJoinedByACommaBetweenBlanks", {L"S1", L"S2", L"S1"}, L"S1 , S2"},
        SiteList{"OneSite_StandsAlone", {L"S1"}, L"S1"},
        SiteList{"CodeContainedInAnEarlierCode_IsLeftOut", {L"A12", L"A1", L"B"}, L"A12 , B"},
        SiteList{"CodeThatContainsAnEarlierCode_IsKept", {L"A1", L"A12"}, L"A1 , A12"},
        SiteList{"CodeInsideALaterPlaceOfTheText_IsLeftOut", {L"X", L"YA12", L"A1"}, L"X , YA12"},
        SiteList{"CodeThatSpansTwoCodes_IsLeftOut", {L"AB", L"CD", L"B , C"}, L"AB , CD"},
        SiteList{"CommaAsCodeAfterTwoOthers_IsLeftOut", {L"A", L"B", L","}, L"A , B"},
        SiteList{"CommaAsCodeAfterOneOther_IsKept", {L"A", L","}, L"A , ,"},
        SiteList{"CaseSeparates", {L"a1", L"A1"}, L"a1 , A1"},
        SiteList{"AccentSeparates", {L"é", L"e"}, L"é , e"},
        SiteList{"BlankCodesAfterAnother_AreLeftOut", {L"S1", L"", L"S2"}, L"S1 , S2"},
        SiteList{"BlankCodesBeforeAnother_LeaveTheTextEmpty", {L"", L"", L"S1"}, L"S1"},
        SiteList{"OnlyBlankCodes_GiveAnEmptyText", {L"", L""}, L""},
        SiteList{"CodeOfBlanksFirst_IsJoinedAndTheResultTrimmed", {L"  ", L"S1"}, L", S1"},
        SiteList{"OuterBlanksOfTheResult_AreTrimmed", {L"  S1", L"S2  "}, L"S1 , S2"},
        SiteList{"InnerBlanksOfCodes_AreKept", {L" S1 ", L" S2 ", L"S3"}, L"S1  ,  S2  , S3"},
        SiteList{"CodeWithBlanksAfterTheSameWithout_IsKept", {L"S1", L"S1  "}, L"S1 , S1"},
        SiteList{"CodeWithoutBlanksAfterTheSameWith_IsLeftOut", {L"S1  ", L"S1"}, L"S1"},
        SiteList{"CodesAreNotQuoted", {L"L'Île", L"\"N\""}, L"L'Île , \"N\""},
        SiteList{"EmptyDimensionedInterventions_GiveAnEmptyText", {}, L""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ContratDocInterventions, ListeSitesCttSQL_NeverDimensioned_IsFault9) {
  EXPECT_TRUE(faults(site_list(), 9));
}

}  // namespace
}  // namespace host
