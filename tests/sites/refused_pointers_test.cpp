// Null addresses of records, arguments and results: each method answers E_POINTER.
#include <functional>

#include "sites/contract_fixture.h"

namespace host {
namespace {

struct Target {
  _ContratDoc* contracts;
  Type_Contrat* contract;
  short* number;
};

/// One method; the flag says whether the result has an address.
struct Method {
  const char* name;
  std::function<HRESULT(const Target&, bool)> call;
  bool takes_number = false;
};

std::vector<Method> methods() {
  static short number = 0;
  static VARIANT_BOOL truth = VARIANT_FALSE;
  static Text text;
  const auto numeric = [](bool wanted) { return wanted ? &number : nullptr; };
  const auto boolean = [](bool wanted) { return wanted ? &truth : nullptr; };
  return {
      {"NbrInterv", [=](const Target& t, bool r) { return t.contracts->NbrInterv(t.contract, numeric(r)); }},
      {"NbrCadInterv",
       [=](const Target& t, bool r) { return t.contracts->NbrCadInterv(t.contract, numeric(r)); }},
      {"FirstIntervSite",
       [=](const Target& t, bool r) {
         return t.contracts->FirstIntervSite(t.contract, t.number, nullptr, nullptr, numeric(r));
       },
       true},
      {"GetNumSite_Dll",
       [=](const Target& t, bool r) { return t.contracts->GetNumSite_Dll(t.contract, t.number, numeric(r)); },
       true},
      {"GetIndByNumSite",
       [=](const Target& t, bool r) {
         return t.contracts->GetIndByNumSite(t.contract, t.number, numeric(r));
       },
       true},
      {"CheckDateInterCtt",
       [=](const Target& t, bool r) { return t.contracts->CheckDateInterCtt(0, t.contract, boolean(r)); }},
      {"CheckLibInterCtt",
       [=](const Target& t, bool r) {
         return t.contracts->CheckLibInterCtt(t.contract, nullptr, boolean(r));
       }},
      {"ListeSitesCttSQL",
       [=](const Target& t, bool r) {
         return t.contracts->ListeSitesCttSQL(t.contract, r ? &text : nullptr);
       }},
      {"IsInfosIntervModifiable",
       [=](const Target& t, bool r) {
         return t.contracts->IsInfosIntervModifiable(t.contract, missing().get(), boolean(r));
       }},
      {"CheckPreavisDocCtt",
       [=](const Target& t, bool r) {
         return t.contracts->CheckPreavisDocCtt(t.contract, VARIANT_FALSE, boolean(r));
       }},
  };
}

std::vector<Method> methods_with_number() {
  auto some = methods();
  std::erase_if(some, [](const Method& method) { return !method.takes_number; });
  return some;
}

std::string name_of(const ::testing::TestParamInfo<Method>& row) { return row.param.name; }

class ContratDocNullAddress : public ContratDocInterventions, public ::testing::WithParamInterface<Method> {
 protected:
  void SetUp() override {
    set(contract_->DateDeb, L"01/03/2025");
    set(contract_->DateFin, L"28/02/2026");
    set_visits(*contract_, {{.site = L"A", .label = L"Visite"}, {.site = L"B"}});
    deep_copy(velmosav::layout_of<Type_Contrat>(), &*contract_, &*before_);
  }
  void TearDown() override { EXPECT_EQ(std::vector<std::string>{}, differences(*before_, *contract_)); }

  void expect_refused(HRESULT code) {
    EXPECT_EQ(E_POINTER, code);
    const ErrorReport report = take_error();
    EXPECT_EQ(L"VelmoSAV_DLL14.ContratDoc", report.source);
    EXPECT_NE(L"", report.description);
  }

  short number_ = 0;
  Target target_{contracts_.get(), &*contract_, &number_};
  Record<Type_Contrat> before_;
};

TEST_P(ContratDocNullAddress, OfTheRecord_IsRefused) {
  target_.contract = nullptr;
  expect_refused(GetParam().call(target_, true));
}

TEST_P(ContratDocNullAddress, OfTheResult_IsRefusedAndNothingChanges) {
  expect_refused(GetParam().call(target_, false));
}

class ContratDocNullNumber : public ContratDocNullAddress {};

TEST_P(ContratDocNullNumber, IsRefused) {
  target_.number = nullptr;
  expect_refused(GetParam().call(target_, true));
}

INSTANTIATE_TEST_SUITE_P(Methods, ContratDocNullAddress, ::testing::ValuesIn(methods()), name_of);
INSTANTIATE_TEST_SUITE_P(Methods, ContratDocNullNumber, ::testing::ValuesIn(methods_with_number()), name_of);

TEST_F(ContratDocInterventions, RazDocCtt_NullAddressOfTheRecord_IsRefused) {
  EXPECT_EQ(E_POINTER, contracts_->RazDocCtt(nullptr));
}

}  // namespace
}  // namespace host
