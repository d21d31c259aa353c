// Interventions and scheduled interventions with another lower bound or elements of another size: the fault
// that fits, and the contract stays as it was.
#include "sites/contract_fixture.h"

namespace host {
namespace {

struct Reader {
  const char* name;
  SAFEARRAY* Type_Contrat::*list;
  HRESULT (*call)(_ContratDoc& contracts, Type_Contrat* contract);
};

void PrintTo(const Reader& reader, std::ostream* stream) { *stream << reader.name; }

class ContratDocRefusedArray : public ContratDocInterventions, public ::testing::WithParamInterface<Reader> {
 protected:
  void SetUp() override {
    set(contract_->DateDeb, L"01/01/2025");
    set(contract_->DateFin, L"31/12/2025");
    set_visits(*contract_, {{.site = L"A", .label = L"Visite"}, {.site = L"B", .label = L"Visite"}});
    set_schedule(*contract_, {{.site = L"A", .label = L"Visite"}, {.site = L"B", .label = L"Visite"}});
  }

  void expect_fault(int number) {
    EXPECT_TRUE(is_fault(GetParam().call(*contracts_.get(), contract_), number, L"ContratDoc"));
  }
};

TEST_P(ContratDocRefusedArray, FromLowerBound1_IsFault9AndNothingChanges) {
  SAFEARRAY* list = (*contract_).*GetParam().list;
  list->rgsabound[0].lLbound = 1;
  const auto before = snapshot(*contract_);
  expect_fault(9);
  EXPECT_EQ(std::vector<std::string>{}, differences(*before, *contract_));
}

TEST_P(ContratDocRefusedArray, OfElementsOfAnotherSize_IsFault13AndNothingChanges) {
  SAFEARRAY* list = (*contract_).*GetParam().list;
  const auto before = snapshot(*contract_);
  list->cbElements += 4;
  expect_fault(13);
  list->cbElements -= 4;
  EXPECT_EQ(std::vector<std::string>{}, differences(*before, *contract_));
}

short number_zero = 0;
short group_one = 1;
short short_result = 0;
VARIANT_BOOL truth_result = VARIANT_FALSE;

const Reader kReaders[] = {
    {"NbrCadInterv", &Type_Contrat::TabCadInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.NbrCadInterv(contract, &short_result);
     }},
    {"FirstIntervSite", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.FirstIntervSite(contract, &number_zero, nullptr, nullptr, &short_result);
     }},
    {"GetNumSite_Dll", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.GetNumSite_Dll(contract, &number_zero, &short_result);
     }},
    {"GetIndByNumSite", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.GetIndByNumSite(contract, &group_one, &short_result);
     }},
    {"CheckDateInterCtt", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.CheckDateInterCtt(0, contract, &truth_result);
     }},
    {"CheckLibInterCtt", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.CheckLibInterCtt(contract, nullptr, &truth_result);
     }},
    {"ListeSitesCttSQL", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       BSTR list = nullptr;
       return contracts.ListeSitesCttSQL(contract, &list);
     }},
    {"IsInfosIntervModifiable", &Type_Contrat::TabInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.IsInfosIntervModifiable(contract, missing().get(), &truth_result);
     }},
    {"IsInfosIntervModifiable_Schedule", &Type_Contrat::TabCadInterv,
     [](_ContratDoc& contracts, Type_Contrat* contract) {
       return contracts.IsInfosIntervModifiable(contract, missing().get(), &truth_result);
     }},
};

INSTANTIATE_TEST_SUITE_P(Readers, ContratDocRefusedArray, ::testing::ValuesIn(kReaders),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace host
