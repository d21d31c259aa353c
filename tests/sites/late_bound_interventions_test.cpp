// The methods of ContratDoc on sites and interventions called by name: the contract and the variables by
// reference, optional arguments left out.
#include "sites/contract_fixture.h"

namespace host {
namespace {

class LateBoundInterventions : public ::testing::Test {
 protected:
  void SetUp() override {
    set(contract_->DateDeb, L"01/03/2025");
    set(contract_->DateFin, L"28/02/2026");
    contract_->Duree = 12;
    set(contract_->UnitDuree, L"M");
    contract_->PreavisD.Duree = 13;
    set(contract_->PreavisD.Unite, L"M");
    set_visits(*contract_, {{.site = L"A", .label = L"Visite"},
                            {.site = L"A", .label = L"Relevé"},
                            {.site = L"B", .label = L"Visite"},
                            {.site = L"B", .label = L"VISITE"},
                            {.site = L"C"}});
    set_schedule(*contract_, {{.site = L"A", .visit = 1, .work_order = L"INT-1"}, {}, {.label = L"Visite"}});
  }

  Variant contract() { return record_argument(*contract_, info_.get()); }

  /// Calls by name; the result must have the type.
  Variant answer(VARTYPE type, const wchar_t* name, std::vector<Variant> list) {
    Variant result;
    EXPECT_EQ(S_OK, call(object_.get(), name, std::move(list), result.receive())) << utf8(name);
    EXPECT_EQ(type, result.get().vt) << utf8(name);
    return result;
  }
  short number(const wchar_t* name, std::vector<Variant> list) {
    return answer(VT_I2, name, std::move(list)).get().iVal;
  }
  bool truth(const wchar_t* name, std::vector<Variant> list) {
    return answer(VT_BOOL, name, std::move(list)).get().boolVal == VARIANT_TRUE;
  }

  ComPtr<IDispatch> object_ = create_dispatch(L"ContratDoc");
  ComPtr<IRecordInfo> info_ = record_info<Type_Contrat>();
  Record<Type_Contrat> contract_;
};

TEST_F(LateBoundInterventions, NbrInterv_AnswersTheSame) {
  EXPECT_EQ(5, number(L"NbrInterv", arguments(contract())));
}

TEST_F(LateBoundInterventions, NbrCadInterv_AnswersTheSame) {
  EXPECT_EQ(2, number(L"NbrCadInterv", arguments(contract())));
}

TEST_F(LateBoundInterventions, FirstIntervSite_FlagsMayBeLeftOut) {
  EXPECT_EQ(2, number(L"FirstIntervSite", arguments(contract(), Variant(3L))));
  EXPECT_EQ(4, number(L"FirstIntervSite", arguments(contract(), Variant(3L), bool_value(true))));
  EXPECT_EQ(0, number(L"FirstIntervSite", arguments(contract(), Variant(3L), missing(), bool_value(true))));
}

TEST_F(LateBoundInterventions, FirstIntervSite_WithBothFlags_SetsTheScriptsPrecToFalse) {
  Variant index(short{3});
  Variant following = bool_value(true);
  Variant previous = bool_value(true);
  EXPECT_EQ(
      4, number(L"FirstIntervSite", arguments(contract(), by_reference(index.get()),
                                              by_reference(following.get()), by_reference(previous.get()))));
  EXPECT_EQ(VARIANT_TRUE, following.get().boolVal);
  EXPECT_EQ(VT_BOOL, previous.get().vt);
  EXPECT_EQ(VARIANT_FALSE, previous.get().boolVal);
}

TEST_F(LateBoundInterventions, GetNumSite_TakesATypedVariable) {
  short index = 3;
  EXPECT_EQ(2, number(L"GetNumSite_Dll", arguments(contract(), by_reference(index))));
  EXPECT_EQ(3, index);
}

TEST_F(LateBoundInterventions, GetIndByNumSite_TakesAScriptVariable) {
  Variant group = text_value(L"3");
  EXPECT_EQ(4, number(L"GetIndByNumSite", arguments(contract(), by_reference(group.get()))));
}

TEST_F(LateBoundInterventions, CheckDateInterCtt_CorrectsTheHostsRecord) {
  const auto before = snapshot(*contract_);
  EXPECT_TRUE(truth(L"CheckDateInterCtt", arguments(Variant(2L), contract())));
  EXPECT_EQ((std::vector<std::string>{"TabInterv(2).DatePrem:  / 01/03/2025",
                                      "TabInterv(2).DateFin:  / 28/02/2026"}),
            differences(*before, *contract_));
}

TEST_F(LateBoundInterventions, CheckLibInterCtt_VariableMayBeLeftOut) {
  EXPECT_FALSE(truth(L"CheckLibInterCtt", arguments(contract())));
}

TEST_F(LateBoundInterventions, CheckLibInterCtt_ScriptVariableReceivesTheLaterRow) {
  Variant later;
  EXPECT_FALSE(truth(L"CheckLibInterCtt", arguments(contract(), by_reference(later.get()))));
  EXPECT_EQ(VT_I2, later.get().vt);
  EXPECT_EQ(3, later.get().iVal);
}

TEST_F(LateBoundInterventions, ListeSitesCttSQL_AnswersTheSame) {
  const Variant list = answer(VT_BSTR, L"ListeSitesCttSQL", arguments(contract()));
  EXPECT_EQ(L"A , B , C", velmosav::view(list.get().bstrVal));
}

TEST_F(LateBoundInterventions, IsInfosIntervModifiable_NumberMayBeLeftOut) {
  EXPECT_FALSE(truth(L"IsInfosIntervModifiable", arguments(contract())));
  EXPECT_FALSE(truth(L"IsInfosIntervModifiable", arguments(contract(), Variant(1L))));
  EXPECT_TRUE(truth(L"IsInfosIntervModifiable", arguments(contract(), Variant(0L))));
}

TEST_F(LateBoundInterventions, IsInfosIntervModifiable_ScriptVariableStays) {
  Variant number = text_value(L"0");
  EXPECT_TRUE(truth(L"IsInfosIntervModifiable", arguments(contract(), by_reference(number.get()))));
  EXPECT_EQ(VT_BSTR, number.get().vt);
}

TEST_F(LateBoundInterventions, CheckPreavisDocCtt_AnswersTheSame) {
  EXPECT_FALSE(truth(L"CheckPreavisDocCtt", arguments(contract(), bool_value(false))));
  EXPECT_TRUE(truth(L"CheckPreavisDocCtt", arguments(contract(), bool_value(true))));
}

TEST_F(LateBoundInterventions, RazDocCtt_EmptiesTheHostsRecord) {
  EXPECT_EQ(S_OK, call(object_.get(), L"RazDocCtt", arguments(contract()), nullptr));
  EXPECT_EQ(nullptr, contract_->TabInterv);
  EXPECT_EQ(nullptr, contract_->TabCadInterv);
}

TEST_F(LateBoundInterventions, AFaultCarriesItsNumberSourceAndFrenchText) {
  Variant result;
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, call(object_.get(), L"GetIndByNumSite", arguments(contract(), Variant(4L)),
                                   result.receive(), &exception));
  const Bstr source = Bstr::attach(exception.bstrSource);
  const Bstr description = Bstr::attach(exception.bstrDescription);
  EXPECT_EQ(static_cast<SCODE>(0x800A0009), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.ContratDoc", source.view());
  EXPECT_EQ(L"Indice hors limites", description.view());
}

}  // namespace
}  // namespace host
