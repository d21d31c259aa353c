// The schedule and amounts of a contract called by name, with the record by reference.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

class LateBound {
 public:
  explicit LateBound(std::initializer_list<Period> periods = {})
      : record(contract(L"01/01/2025", L"31/12/2025", periods)) {}

  /// Calls a method on the record, with more arguments behind it.
  template <class... Values>
  Variant run(const wchar_t* name, Values&&... values) {
    Variant result;
    EXPECT_EQ(S_OK, call(object_.get(), name,
                         arguments(record_argument(*record, info_.get()), std::forward<Values>(values)...),
                         result.receive()))
        << utf8(name);
    return result;
  }
  /// The same without the record.
  template <class... Values>
  Variant run_plain(const wchar_t* name, Values&&... values) {
    Variant result;
    EXPECT_EQ(S_OK, call(object_.get(), name, arguments(std::forward<Values>(values)...), result.receive()))
        << utf8(name);
    return result;
  }

  Record<Type_Contrat> record;

 protected:
  ComPtr<IDispatch> object_ = create_dispatch(L"ContratDoc");
  ComPtr<IRecordInfo> info_ = record_info<Type_Contrat>();
};

const std::initializer_list<Period> kTwoRows = {{L"01/01/2025", L"30/06/2025"},
                                                {L"01/07/2025", L"31/12/2025"}};

std::wstring text_of(const Variant& value) {
  EXPECT_EQ(VT_BSTR, value.get().vt);
  return value.get().vt == VT_BSTR ? get(value.get().bstrVal) : std::wstring();
}
int number_of(const Variant& value) {
  EXPECT_EQ(VT_I2, value.get().vt);
  return value.get().iVal;
}
bool flag_of(const Variant& value) {
  EXPECT_EQ(VT_BOOL, value.get().vt);
  return value.get().boolVal == VARIANT_TRUE;
}
double amount_of(const Variant& value) {
  EXPECT_EQ(VT_R8, value.get().vt);
  return value.get().dblVal;
}

TEST(ContratDoc, CadFactPeriod_GetEndFromNextStart_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"14/03/25",
            text_of(LateBound().run_plain(L"CadFactPeriod_GetEndFromNextStart", text_value(L"15/03/2025"))));
}

TEST(ContratDoc, CadFactPeriod_GetStartFromPreviousEnd_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"16/03/25", text_of(LateBound().run_plain(L"CadFactPeriod_GetStartFromPreviousEnd",
                                                       text_value(L"15/03/2025"))));
}

TEST(ContratDoc, Ctt_SetCadFactStartPeriod_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"31/12/2025", text_of(LateBound().run(L"Ctt_SetCadFactStartPeriod", text_value(L"31/12/2025"))));
}

TEST(ContratDoc, Ctt_SetCadFactEndPeriod_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"31/12/2025", text_of(LateBound().run(L"Ctt_SetCadFactEndPeriod", text_value(L"02/01/2026"))));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_LateBoundChangesTheHostsRecord) {
  LateBound host(kTwoRows);
  auto expected = snapshot(*host.record);
  set(row(expected, 1).DateDeb, L"16/07/25");
  EXPECT_EQ(1, number_of(host.run(L"CadFact_SpreadPeriodDateEdition", Variant(0L), text_value(L"15/07/2025"),
                                  bool_value(false))));
  expect_same(*expected, *host.record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_LateBoundTakesAScriptsNumbersAndWords) {
  LateBound host(kTwoRows);
  Variant edited = text_value(L"1");
  EXPECT_EQ(0, number_of(host.run(L"CadFact_SpreadPeriodDateEdition", by_reference(edited.get()),
                                  text_value(L"15/06/2025"), Variant(1L))));
  EXPECT_EQ(L"14/06/25", get(row(host.record, 0).DateFin));
}

TEST(ContratDoc, AjouterCadFactCtt_LateBoundIndexLeftOutAppends) {
  LateBound host(kTwoRows);
  EXPECT_EQ(2, number_of(host.run(L"AjouterCadFactCtt", text_value(L"05/12/2025"), text_value(L"01/12/2025"),
                                  text_value(L"31/12/2025"))));
  EXPECT_EQ(L"3ème échéance de facturation", get(row(host.record, 2).Libelle));
}

TEST(ContratDoc, AjouterCadFactCtt_LateBoundTypedVariableReceivesTheIndex) {
  LateBound host(kTwoRows);
  short index = -1;
  EXPECT_EQ(2, number_of(host.run(L"AjouterCadFactCtt", text_value(L""), text_value(L""),
                                  text_value(L"31/12/2025"), by_reference(index))));
  EXPECT_EQ(2, index);
}

TEST(ContratDoc, AjouterCadFactCtt_LateBoundScriptVariableReceivesTheIndex) {
  LateBound host(kTwoRows);
  Variant index(-1L);
  EXPECT_EQ(2, number_of(host.run(L"AjouterCadFactCtt", text_value(L""), text_value(L""),
                                  text_value(L"31/12/2025"), by_reference(index.get()))));
  EXPECT_EQ(2, number_of(index));
}

TEST(ContratDoc, AjouterCadFactCtt_LateBoundIndexIsTakenAsAWholeNumber) {
  const std::pair<double, int> cases[] = {{0.5, 0}, {1, 1}, {1.5, 2}};  // halves go to the even number
  for (const auto& [given, expected] : cases) {
    LateBound host(kTwoRows);
    Variant index(given);
    EXPECT_EQ(expected, number_of(host.run(L"AjouterCadFactCtt", text_value(L""), text_value(L""),
                                           text_value(L"31/12/2025"), by_reference(index.get()))));
  }
}

TEST(ContratDoc, AjouterCadFactCtt_LateBoundScheduleNeverDimensionedIsMade) {
  LateBound host;
  EXPECT_EQ(0, number_of(host.run(L"AjouterCadFactCtt", text_value(L"05/01/2025"), text_value(L""),
                                  text_value(L"31/01/2025"), Variant(0L))));
  ASSERT_NE(nullptr, host.record->TabCadFact);
  EXPECT_EQ(L"1ère échéance de facturation", get(row(host.record, 0).Libelle));
}

TEST(ContratDoc, GetLastDatePeriode_LateBoundArgumentsMayBeLeftOut) {
  LateBound host(kTwoRows);
  EXPECT_EQ(L"31/12/2025", text_of(host.run(L"GetLastDatePeriode")));
}

TEST(ContratDoc, GetLastDatePeriode_LateBoundDefaultMayBeLeftOut) {
  LateBound host(kTwoRows);
  EXPECT_EQ(L"01/01/2025", text_of(host.run(L"GetLastDatePeriode", bool_value(true))));
}

TEST(ContratDoc, GetLastDatePeriode_LateBoundAllArguments) {
  LateBound host(kTwoRows);
  EXPECT_EQ(L"15/12/2024",
            text_of(host.run(L"GetLastDatePeriode", bool_value(true), text_value(L"15/12/2024"))));
}

TEST(ContratDoc, NbrCadFact_LateBoundAnswersTheSame) {
  EXPECT_EQ(2, number_of(LateBound(kTwoRows).run(L"NbrCadFact")));
  EXPECT_EQ(-1, number_of(LateBound().run(L"NbrCadFact")));
}

TEST(ContratDoc, NbrCadFactFacture_LateBoundAnswersTheSame) {
  LateBound host({{L"01/01/2025", L"30/06/2025", true}, {L"01/07/2025", L"31/12/2025"}});
  EXPECT_EQ(1, number_of(host.run(L"NbrCadFactFacture")));
}

TEST(ContratDoc, NbrEchP_LateBoundAnswersTheSame) { EXPECT_EQ(2, number_of(LateBound().run(L"NbrEchP"))); }

TEST(ContratDoc, NbrCadInterv_LateBoundAnswersTheSame) {
  EXPECT_EQ(1, number_of(LateBound().run(L"NbrCadInterv")));
}

TEST(ContratDoc, IsEchCttForcee_LateBoundAnswersTheSame) {
  LateBound host(kTwoRows);
  EXPECT_FALSE(flag_of(host.run(L"IsEchCttForcee")));
  row(host.record, 1).Force = VARIANT_TRUE;
  EXPECT_TRUE(flag_of(host.run(L"IsEchCttForcee")));
}

TEST(ContratDoc, IsEchCttTransferee_LateBoundArgumentsMayBeLeftOut) {
  LateBound host(kTwoRows);
  EXPECT_FALSE(flag_of(host.run(L"IsEchCttTransferee")));
  row(host.record, 1).Transfere = VARIANT_TRUE;
  EXPECT_TRUE(flag_of(host.run(L"IsEchCttTransferee")));
}

TEST(ContratDoc, IsEchCttTransferee_LateBoundScriptVariablesAreWrittenBack) {
  LateBound host(kTwoRows);
  Variant billing(0L), interventions(1L), number = text_value(L"7");
  EXPECT_FALSE(flag_of(host.run(L"IsEchCttTransferee", by_reference(billing.get()),
                                by_reference(interventions.get()), by_reference(number.get()))));
  EXPECT_EQ(VT_BOOL, billing.get().vt);
  EXPECT_EQ(VARIANT_FALSE, billing.get().boolVal);
  EXPECT_EQ(VT_BOOL, interventions.get().vt);
  EXPECT_EQ(VARIANT_TRUE, interventions.get().boolVal);
  EXPECT_EQ(VT_R8, number.get().vt);
  EXPECT_EQ(7.0, number.get().dblVal);
}

TEST(ContratDoc, IsEchCttTransferee_LateBoundTypedVariableTakesTheNumberInItsOwnType) {
  LateBound host(kTwoRows);
  short number = 7;
  EXPECT_FALSE(
      flag_of(host.run(L"IsEchCttTransferee", bool_value(false), bool_value(true), by_reference(number))));
  EXPECT_EQ(7, number);
}

TEST(ContratDoc, SetDateByDuree_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"31/12/25", text_of(LateBound().run_plain(L"SetDateByDuree", text_value(L"01/01/2025"),
                                                       Variant(12L), text_value(L"M"))));
}

TEST(ContratDoc, GetMttPivot_LateBoundAnswersTheSame) {
  LateBound host;
  set(host.record->TypeTypTarif, L"H");
  host.record->MontantHT = 90;
  EXPECT_EQ(90.0, amount_of(host.run(L"GetMttPivot")));
}

TEST(ContratDoc, GetMttPivotCadFact_LateBoundAnswersTheSame) {
  const auto object = create_dispatch(L"ContratDoc");
  const auto info = record_info<Type_CadencierFact>();
  Record<Type_CadencierFact> line;
  set(line->TypeTypTarif, L"T");
  line->MontantTTC = 108;
  Variant result;
  EXPECT_EQ(S_OK, call(object.get(), L"GetMttPivotCadFact", arguments(record_argument(*line, info.get())),
                       result.receive()));
  EXPECT_EQ(108.0, amount_of(result));
}

TEST(ContratDoc, GetMttCtt_LateBoundScriptVariablesReceiveTheTotals) {
  LateBound host(kTwoRows);
  set(host.record->TypeTypTarif, L"H");
  for (unsigned long i = 0; i < 2; ++i) {
    row(host.record, i).MontantHT = 10;
    row(host.record, i).MontantTTC = 12;
  }
  Variant before_tax, with_tax;
  EXPECT_EQ(20.0,
            amount_of(host.run(L"GetMttCtt", by_reference(before_tax.get()), by_reference(with_tax.get()))));
  EXPECT_EQ(20.0, amount_of(before_tax));
  EXPECT_EQ(24.0, amount_of(with_tax));
}

TEST(ContratDoc, GetMttCtt_LateBoundVariablesMayBeLeftOut) {
  LateBound host(kTwoRows);
  set(host.record->TypeTypTarif, L"T");
  row(host.record, 0).MontantTTC = 12;
  row(host.record, 1).MontantTTC = 0;
  EXPECT_EQ(12.0, amount_of(host.run(L"GetMttCtt")));
}

TEST(ContratDoc, CalculSommeMtt_LateBoundDecimalsLeftOutAreTwo) {
  LateBound host;
  set(host.record->TypeTypTarif, L"T");
  host.record->MontantHT = 10;
  host.record->Remise = 30;
  (void)host.run(L"CalculSommeMtt");
  EXPECT_EQ(0.0, host.record->MontantTTC);
  EXPECT_EQ(14.29, host.record->MontantHTBrut);
}

TEST(ContratDoc, CalculMttBrut_LateBoundDecimalsLeftOutAreTwo) {
  LateBound host;
  host.record->MontantHT = 10;
  host.record->MontantTTC = 20;
  host.record->Remise = 30;
  (void)host.run(L"CalculMttBrut");
  EXPECT_EQ(14.29, host.record->MontantHTBrut);
  EXPECT_EQ(28.57, host.record->MontantTTCBrut);
}

TEST(ContratDoc, GetMttEchTransf_LateBoundAnswersCurrency) {
  LateBound host({{L"01/01/2025", L"30/06/2025", true}});
  row(host.record, 0).MontantHT = 100.10;
  set(host.record->TypeTypTarif, L"H");
  for (const Variant& result :
       arguments(host.run(L"GetMttEchTransf"), host.run(L"GetMttEchTransf", text_value(L" H ")))) {
    EXPECT_EQ(VT_CY, result.get().vt);
    EXPECT_EQ(1001000, result.get().cyVal.int64);
  }
}

TEST(ContratDoc, RazDocCtt_LateBoundReleasesTheLists) {
  LateBound host(kTwoRows);
  (void)host.run(L"RazDocCtt");
  EXPECT_EQ(nullptr, host.record->TabInterv);
  EXPECT_EQ(nullptr, host.record->TabCadInterv);
  EXPECT_EQ(nullptr, host.record->TabCadFact);
}

TEST(ContratDoc, AjouterCadFactCtt_LateBoundFaultCarriesTheNumberAndTheSource) {
  const auto object = create_dispatch(L"ContratDoc");
  const auto info = record_info<Type_Contrat>();
  auto record = contract(L"01/01/2025", L"", kTwoRows);
  Variant result;
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, call(object.get(), L"AjouterCadFactCtt",
                                   arguments(record_argument(*record, info.get()), text_value(L""),
                                             text_value(L""), text_value(L"31/12/2025")),
                                   result.receive(), &exception));
  const Bstr source = Bstr::attach(exception.bstrSource);
  const Bstr description = Bstr::attach(exception.bstrDescription);
  EXPECT_EQ(static_cast<SCODE>(0x800A000D), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.ContratDoc", source.view());
  EXPECT_EQ(L"Type incompatible", description.view());
}

}  // namespace
