// AjouterCadFactCtt: where the row goes, and the arrays that it can and cannot go to.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

Record<Type_Contrat> five_rows() {
  return contract(L"01/01/2025", L"31/12/2025",
                  {{L"01/01/2025", L"31/01/2025"},
                   {L"01/02/2025", L"28/02/2025"},
                   {L"01/03/2025", L"31/03/2025"},
                   {L"01/04/2025", L"30/04/2025"},
                   {L"01/05/2025", L"31/05/2025"}});
}

short add(Record<Type_Contrat>& record, short* index = nullptr) {
  return Contracts().add(record, L"05/06/2025", L"01/06/2025", L"30/06/2025", index);
}

HRESULT try_to_add(Record<Type_Contrat>& record, short* index = nullptr) {
  short result = -99;
  return Contracts()->AjouterCadFactCtt(record, Text(L"05/06/2025"), Text(L"01/06/2025"), Text(L"30/06/2025"),
                                        index, &result);
}

/// Texts of one length, taken from the platform's stock of freed ones: a text that a call frees is then the
/// first that it is given again, so that one which is still read shows.
std::vector<Bstr> emptied_stock(std::size_t length) {
  std::vector<Bstr> texts;
  for (int i = 0; i < 64; ++i) texts.push_back(Bstr(std::wstring(length, L'#')));
  return texts;
}

TEST(ContratDoc, AjouterCadFactCtt_IndexLeftOutAppends) {
  auto record = five_rows();
  EXPECT_EQ(5, add(record));
  EXPECT_EQ(6UL, record->TabCadFact->rgsabound[0].cElements);
}

TEST(ContratDoc, AjouterCadFactCtt_IndexMinus1AppendsAndReceivesTheIndex) {
  auto record = five_rows();
  short index = -1;
  EXPECT_EQ(5, add(record, &index));
  EXPECT_EQ(5, index);
}

TEST(ContratDoc, AjouterCadFactCtt_IndexOfTheLastRowRewritesIt) {
  auto record = five_rows();
  const auto before = snapshot(*record);
  short index = 4;
  EXPECT_EQ(4, add(record, &index));
  EXPECT_EQ(4, index);
  EXPECT_EQ(5UL, record->TabCadFact->rgsabound[0].cElements);
  EXPECT_EQ(L"01/06/2025", get(row(record, 4).DateDeb));
}

TEST(ContratDoc, AjouterCadFactCtt_AtIndex2OfFiveRowsLeavesThreeRows) {
  auto record = five_rows();
  auto expected = snapshot(*record);
  resize_schedule(*expected, 2);
  short index = 2;
  EXPECT_EQ(2, add(record, &index));
  EXPECT_EQ(2, index);
  EXPECT_EQ(3, Contracts().answer(&_ContratDoc::NbrCadFact, record));
  EXPECT_EQ(L"01/06/2025", get(row(record, 2).DateDeb));
  resize_schedule(*record, 2);
  expect_same(*expected, *record);  // the rows before it, and the rest of the contract
}

TEST(ContratDoc, AjouterCadFactCtt_RowsDroppedByOneCallDoNotComeBackWithTheNext) {
  auto record = five_rows();
  short index = 2;
  add(record, &index);
  index = 4;
  EXPECT_EQ(4, add(record, &index));
  Record<Type_CadencierFact> empty;
  EXPECT_EQ(std::vector<std::string>(), differences(*empty, row(record, 3)));
}

TEST(ContratDoc, AjouterCadFactCtt_IndexBeyondTheScheduleAddsEmptyRowsBetween) {
  auto record = five_rows();
  auto expected = snapshot(*record);
  resize_schedule(*expected, 8);
  short index = 8;
  EXPECT_EQ(8, add(record, &index));
  EXPECT_EQ(L"9ème échéance de facturation", get(row(record, 8).Libelle));
  resize_schedule(*record, 8);
  expect_same(*expected, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_NegativeIndexReturnsMinus1AndChangesNothing) {
  for (const short negative : {short{-2}, short{-32768}}) {
    auto record = five_rows();
    const auto before = snapshot(*record);
    short index = negative;
    EXPECT_EQ(-1, add(record, &index));
    EXPECT_EQ(negative, index);
    expect_same(*before, *record);
  }
}

TEST(ContratDoc, AjouterCadFactCtt_NegativeIndexIsNotHeldUpByBadDates) {
  auto record = five_rows();
  set(record->DateFin, L"");
  short index = -2;
  EXPECT_EQ(-1, Contracts().add(record, L"", L"", L"", &index));
}

TEST(ContratDoc, AjouterCadFactCtt_AppendedToAScheduleNeverDimensionedReturnsMinus1) {
  auto record = contract(L"01/01/2025", L"31/12/2025");  // its count is -1
  const auto before = snapshot(*record);
  short index = -1;
  EXPECT_EQ(-1, add(record, &index));
  EXPECT_EQ(-1, index);
  expect_same(*before, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_AppendedToAScheduleOfNoRowIsRow0) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  short index = -1;
  EXPECT_EQ(0, add(record, &index));
  EXPECT_EQ(0, index);
  EXPECT_EQ(L"1ère échéance de facturation", get(row(record, 0).Libelle));
}

TEST(ContratDoc, AjouterCadFactCtt_AtIndex0OfAScheduleNeverDimensionedMakesIt) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  short index = 0;
  EXPECT_EQ(0, add(record, &index));
  ASSERT_NE(nullptr, record->TabCadFact);
  EXPECT_EQ(1UL, record->TabCadFact->rgsabound[0].cElements);
  EXPECT_EQ(0, record->TabCadFact->rgsabound[0].lLbound);
}

TEST(ContratDoc, AjouterCadFactCtt_ScheduleMadeHereHasRecordInformation) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  short index = 0;
  add(record, &index);
  ComPtr<IRecordInfo> info;
  ASSERT_EQ(S_OK, SafeArrayGetRecordInfo(record->TabCadFact, info.receive()));
  GUID id;
  ASSERT_EQ(S_OK, info->GetGuid(&id));
  EXPECT_TRUE(IsEqualGUID(velmosav::layout_of<Type_CadencierFact>().id, id));
}

TEST(ContratDoc, AjouterCadFactCtt_ScheduleWithRecordInformationGrowsAndShrinks) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  for (short i = 0; i < 4; ++i) {
    short index = i;
    EXPECT_EQ(i, add(record, &index));
  }
  auto expected = snapshot(*record);
  resize_schedule(*expected, 2);
  short index = 1;
  EXPECT_EQ(1, add(record, &index));
  expect_same(*expected, *record);  // row 1 is written as it was before
}

TEST(ContratDoc, AjouterCadFactCtt_ArgumentsMayBeTextsOfTheRowThatIsWritten) {
  auto record = five_rows();
  set(row(record, 3).DateFact, L"06/04/2025");
  Type_CadencierFact& line = row(record, 3);
  short index = 3;
  short result = -99;
  EXPECT_EQ(S_OK, Contracts()->AjouterCadFactCtt(record, line.DateFact, line.DateDeb, line.DateFin, &index,
                                                 &result));
  EXPECT_EQ(L"06/04/2025", get(row(record, 3).DateFact));
  EXPECT_EQ(L"01/04/2025", get(row(record, 3).DateDeb));
  EXPECT_EQ(L"30/04/2025", get(row(record, 3).DateFin));
}

TEST(ContratDoc, AjouterCadFactCtt_ArgumentsMayBeTextsOfARowThatIsDropped) {
  auto record = five_rows();
  set(row(record, 4).DateFact, L"06/05/2025");
  Type_CadencierFact& line = row(record, 4);
  const Contracts contracts;
  const auto stock = emptied_stock(10);
  short index = 2;
  short result = -99;
  EXPECT_EQ(S_OK,
            contracts->AjouterCadFactCtt(record, line.DateFact, line.DateDeb, line.DateFin, &index, &result));
  EXPECT_EQ(L"06/05/2025", get(row(record, 2).DateFact));
  EXPECT_EQ(L"01/05/2025", get(row(record, 2).DateDeb));
  EXPECT_EQ(L"31/05/2025", get(row(record, 2).DateFin));
}

TEST(ContratDoc, AjouterCadFactCtt_InvoicingDateMayBeTheOldStartOfTheRowThatIsWritten) {
  auto record = five_rows();
  const std::wstring old_start(60, L'a');
  const Text new_start(std::wstring(60, L'b'));
  const Text end(L"30/04/2025" + std::wstring(50, L' '));
  set(row(record, 3).DateDeb, old_start);
  const Contracts contracts;
  const auto stock = emptied_stock(60);
  short index = 3;
  short result = -99;
  EXPECT_EQ(S_OK,
            contracts->AjouterCadFactCtt(record, row(record, 3).DateDeb, new_start, end, &index, &result));
  EXPECT_EQ(old_start, get(row(record, 3).DateFact));
}

TEST(ContratDoc, AjouterCadFactCtt_OtherLowerBoundIsFault9AndChangesNothing) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  const auto before = snapshot(*record);
  EXPECT_TRUE(is_contract_fault(try_to_add(record), 9));
  short index = 1;
  EXPECT_TRUE(is_contract_fault(try_to_add(record, &index), 9));
  expect_same(*before, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_ScheduleOfTwoDimensionsIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_two_dimensions(*record);
  EXPECT_TRUE(is_contract_fault(try_to_add(record), 9));
}

TEST(ContratDoc, AjouterCadFactCtt_ScheduleOfOtherElementsIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_other_elements(*record);
  EXPECT_TRUE(is_contract_fault(try_to_add(record), 13));
}

TEST(ContratDoc, AjouterCadFactCtt_LockedScheduleIsFault10AndChangesNothing) {
  auto record = five_rows();
  const auto before = snapshot(*record);
  ASSERT_EQ(S_OK, SafeArrayLock(record->TabCadFact));
  EXPECT_TRUE(is_contract_fault(try_to_add(record), 10));
  short index = 2;
  EXPECT_TRUE(is_contract_fault(try_to_add(record, &index), 10));
  index = 4;  // no row more or less
  EXPECT_TRUE(is_contract_fault(try_to_add(record, &index), 10));
  ASSERT_EQ(S_OK, SafeArrayUnlock(record->TabCadFact));
  expect_same(*before, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_ScheduleOfFixedSizeIsFault10) {
  auto record = five_rows();
  record->TabCadFact->fFeatures |= FADF_FIXEDSIZE;
  EXPECT_TRUE(is_contract_fault(try_to_add(record), 10));
  record->TabCadFact->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);
}

TEST(ContratDoc, AjouterCadFactCtt_NullContractOrResultIsEPointer) {
  auto record = five_rows();
  const auto before = snapshot(*record);
  short result = 0;
  Text date(L"30/06/2025");
  EXPECT_EQ(E_POINTER, Contracts()->AjouterCadFactCtt(nullptr, date, date, date, nullptr, &result));
  EXPECT_EQ(E_POINTER, Contracts()->AjouterCadFactCtt(record, date, date, date, nullptr, nullptr));
  expect_same(*before, *record);
}

}  // namespace
