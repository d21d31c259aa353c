// AjouterCadFactCtt: what the new row holds.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

Record<Type_Contrat> two_rows(const wchar_t* contract_end = L"31/12/2025") {
  return contract(L"01/01/2025", contract_end,
                  {{L"01/01/2025", L"31/03/2025"}, {L"01/04/2025", L"30/06/2025"}});
}

/// The row as it must come out: everything of the contract that a row takes over, and its beginnings.
void expect_row(Type_CadencierFact& line, const Type_Contrat& contract, short index, const wchar_t* label) {
  velmosav::clear(line);
  set(line.CodeContrat, get(contract.Code));
  line.NumEch = index;
  set(line.Libelle, label);
  set(line.Vendeur, get(contract.Vendeur));
  set(line.TypeTypTarif, get(contract.TypeTypTarif));
  line.CodeTva = contract.CodeTva;
  deep_copy(velmosav::layout_of<Type_RepartTVA>(), &contract.RepartTva, &line.RepartTva);
  line.NumAuto = -1;
}

TEST(ContratDoc, AjouterCadFactCtt_AppendedRowTakesTheContractsValuesAndIsBlankOtherwise) {
  auto record = two_rows();
  auto expected = snapshot(*record);
  resize_schedule(*expected, 3);
  expect_row(row(expected, 2), *record, 2, L"3ème échéance de facturation");
  set_period(row(expected, 2), L"01/07/2025", L"30/09/2025");
  set(row(expected, 2).DateFact, L"05/07/2025");
  EXPECT_EQ(2, Contracts().add(record, L"05/07/2025", L"01/07/2025", L"30/09/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_RowWrittenOverAnotherKeepsNothingOfIt) {
  auto record = two_rows();
  fill(row(record, 1));
  auto expected = snapshot(*record);
  expect_row(row(expected, 1), *record, 1, L"2ème échéance de facturation");
  set_period(row(expected, 1), L"01/05/2025", L"31/05/2025");
  set(row(expected, 1).DateFact, L"05/05/2025");
  short index = 1;
  EXPECT_EQ(1, Contracts().add(record, L"05/05/2025", L"01/05/2025", L"31/05/2025", &index));
  expect_same(*expected, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_AtIndex0TakesTheContractsStartNotTheArgument) {
  auto record = two_rows();
  auto expected = snapshot(*record);
  resize_schedule(*expected, 1);
  expect_row(row(expected, 0), *record, 0, L"1ère échéance de facturation");
  set_period(row(expected, 0), L"01/01/2025", L"31/01/2025");
  set(row(expected, 0).DateFact, L"05/01/2025");
  short index = 0;
  EXPECT_EQ(0, Contracts().add(record, L"05/01/2025", L"15/01/2025", L"31/01/2025", &index));
  expect_same(*expected, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_LabelCountsFromOne) {
  auto record = two_rows();
  short index = 10;
  EXPECT_EQ(10, Contracts().add(record, L"", L"", L"31/12/2025", &index));
  EXPECT_EQ(L"11ème échéance de facturation", get(row(record, 10).Libelle));
}

TEST(ContratDoc, AjouterCadFactCtt_LabelIsMadeOfTheInstancesOwnMembers) {
  auto record = two_rows();
  const Contracts contracts;
  ASSERT_EQ(S_OK, contracts->put_PC_EchFact_LibDef(Text(L"loyer")));
  ASSERT_EQ(S_OK, contracts->put_PC_EchFact_PrefEnumUn(Text(L"er")));
  ASSERT_EQ(S_OK, contracts->put_PC_EchFact_PrefEnum(Text(L"e")));
  contracts.add(record, L"", L"", L"31/12/2025");
  EXPECT_EQ(L"3e loyer", get(row(record, 2).Libelle));
  short index = 0;
  contracts.add(record, L"", L"", L"31/12/2025", &index);
  EXPECT_EQ(L"1er loyer", get(row(record, 0).Libelle));
}

TEST(ContratDoc, AjouterCadFactCtt_LabelOfAnotherInstanceStays) {
  auto record = two_rows();
  const Contracts changed;
  ASSERT_EQ(S_OK, changed->put_PC_EchFact_LibDef(Text(L"loyer")));
  Contracts().add(record, L"", L"", L"31/12/2025");
  EXPECT_EQ(L"3ème échéance de facturation", get(row(record, 2).Libelle));
}

TEST(ContratDoc, AjouterCadFactCtt_BlankLabelStillHasItsBlank) {
  auto record = two_rows();
  const Contracts contracts;
  ASSERT_EQ(S_OK, contracts->put_PC_EchFact_LibDef(Text(L"")));
  contracts.add(record, L"", L"", L"31/12/2025");
  EXPECT_EQ(L"3ème ", get(row(record, 2).Libelle));
}

TEST(ContratDoc, AjouterCadFactCtt_EndPastTheContractsEndIsItsEndAsWritten) {
  auto record = two_rows(L"31/08/2025");
  Contracts().add(record, L"05/07/2025", L"01/07/2025", L"30/09/25");
  EXPECT_EQ(L"31/08/2025", get(row(record, 2).DateFin));
}

TEST(ContratDoc, AjouterCadFactCtt_EndOnTheContractsEndIsTheArgumentAsWritten) {
  auto record = two_rows(L"31/08/2025");
  Contracts().add(record, L"05/07/2025", L"01/07/2025", L"31/08/25");
  EXPECT_EQ(L"31/08/25", get(row(record, 2).DateFin));
}

TEST(ContratDoc, AjouterCadFactCtt_InvoicingDateAndStartAreTakenAsTheyAre) {
  auto record = two_rows();
  Contracts().add(record, L" à réception ", L"plus tard", L"31/12/2025");
  EXPECT_EQ(L" à réception ", get(row(record, 2).DateFact));
  EXPECT_EQ(L"plus tard", get(row(record, 2).DateDeb));
}

TEST(ContratDoc, AjouterCadFactCtt_ContractStartNeedNotBeADate) {
  auto record = two_rows();
  set(record->DateDeb, L"");
  short index = 0;
  EXPECT_EQ(0, Contracts().add(record, L"", L"15/01/2025", L"31/12/2025", &index));
  EXPECT_EQ(L"", get(row(record, 0).DateDeb));
}

TEST(ContratDoc, AjouterCadFactCtt_VatDistributionIsACopyOfItsOwn) {
  auto record = two_rows();
  Contracts().add(record, L"", L"", L"31/12/2025");
  auto expected = snapshot(row(record, 2).RepartTva);
  // Over the same memory: a text that both held would change with it.
  for (Type_LigneRepartTVA& line : record->RepartTva.Lignes) line.Compte[0] = L'#';
  EXPECT_EQ(std::vector<std::string>(), differences(*expected, row(record, 2).RepartTva));
}

TEST(ContratDoc, AjouterCadFactCtt_RowsBeforeTheIndexKeepTheirTexts) {
  auto record = two_rows();
  const BSTR first = row(record, 0).DateDeb;
  Contracts().add(record, L"", L"", L"31/12/2025");
  EXPECT_EQ(first, row(record, 0).DateDeb);
}

TEST(ContratDoc, AjouterCadFactCtt_BlankContractEndIsFault13) {
  for (const wchar_t* end : {L"", L"  ", L"sans"}) {
    auto record = two_rows(end);
    short result = -99;
    EXPECT_TRUE(is_contract_fault(
        Contracts()->AjouterCadFactCtt(record, Text(L""), Text(L""), Text(L"30/09/2025"), nullptr, &result),
        13))
        << utf8(end);
  }
}

TEST(ContratDoc, AjouterCadFactCtt_EndThatIsNoDateIsFault13) {
  auto record = two_rows();
  short result = -99;
  EXPECT_TRUE(is_contract_fault(
      Contracts()->AjouterCadFactCtt(record, Text(L""), Text(L""), Text(L""), nullptr, &result), 13));
}

TEST(ContratDoc, AjouterCadFactCtt_FaultOfTheEndLeavesTheNewRowWithWhatCameBefore) {
  auto record = two_rows(L"");
  auto expected = snapshot(*record);
  resize_schedule(*expected, 3);
  set(row(expected, 2).CodeContrat, get(record->Code));
  row(expected, 2).NumEch = 2;
  set(row(expected, 2).DateDeb, L"01/07/2025");
  set(row(expected, 2).Libelle, L"3ème échéance de facturation");
  short index = -1;
  short result = -99;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->AjouterCadFactCtt(record, Text(L"05/07/2025"), Text(L"01/07/2025"),
                                                       Text(L"30/09/2025"), &index, &result),
                        13));
  EXPECT_EQ(2, index);
  expect_same(*expected, *record);
}

TEST(ContratDoc, AjouterCadFactCtt_FaultOfTheEndLeavesTheRestOfAnOldRow) {
  auto record = two_rows();
  set(record->DateFin, L"");
  auto expected = snapshot(*record);
  resize_schedule(*expected, 1);
  set(row(expected, 0).CodeContrat, get(record->Code));
  set(row(expected, 0).Libelle, L"1ère échéance de facturation");
  short index = 0;
  short result = -99;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->AjouterCadFactCtt(record, Text(L"05/07/2025"), Text(L"01/07/2025"),
                                                       Text(L"30/09/2025"), &index, &result),
                        13));
  expect_same(*expected, *record);
}

}  // namespace
