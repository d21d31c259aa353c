// Calls of ContratDoc: the billing schedule and its amounts.
#include "memory/catalogue.h"
#include "memory/documents.h"

namespace host {
namespace {

using Contracts = CallsOf<_ContratDoc>;

void add_period_calls(Contracts& contracts) {
  contracts
      .succeeds("CadFactPeriod_GetEndFromNextStart",
                [](Scene&, _ContratDoc& object) {
                  Text result;
                  return object.CadFactPeriod_GetEndFromNextStart(Text(L"01/03/2025"), &result);
                })
      .fails("CadFactPeriod_GetEndFromNextStart", Fault::TypeMismatch,
             [](Scene&, _ContratDoc& object) {
               Text result;
               return object.CadFactPeriod_GetEndFromNextStart(Text(L"bientôt"), &result);
             })
      .succeeds("CadFactPeriod_GetStartFromPreviousEnd",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"CadFactPeriod_GetStartFromPreviousEnd",
                                      arguments(text_value(L"28/02/2025")));
                })
      .fails("CadFactPeriod_GetStartFromPreviousEnd", Fault::TypeMismatch,
             [](Scene&, IDispatch& object) {
               return call_by_name(object, L"CadFactPeriod_GetStartFromPreviousEnd",
                                   arguments(text_value(L"bientôt")));
             })
      .succeeds("Ctt_SetCadFactStartPeriod",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  Text result;
                  return object.Ctt_SetCadFactStartPeriod(contract, Text(L"31/12/2026"), &result);
                })
      .fails("Ctt_SetCadFactStartPeriod", Fault::TypeMismatch,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = billed_contract();
               set(contract->DateFin, L"sans fin");
               const auto watch = scene.watch(contract);
               Text result;
               return object.Ctt_SetCadFactStartPeriod(contract, Text(L"31/12/2026"), &result);
             })
      .succeeds("Ctt_SetCadFactEndPeriod",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  Text result;
                  return object.Ctt_SetCadFactEndPeriod(contract, Text(L"01/06/2025"), &result);
                })
      .fails("Ctt_SetCadFactEndPeriod", Fault::TypeMismatch,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = billed_contract();
               const auto watch = scene.watch(contract);
               Text result;
               return object.Ctt_SetCadFactEndPeriod(contract, Text(L"bientôt"), &result);
             })
      .succeeds("CadFact_SpreadPeriodDateEdition",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  short result = 0;
                  return object.CadFact_SpreadPeriodDateEdition(contract, 0, Text(L"15/08/25"), VARIANT_FALSE,
                                                                &result);
                })
      .succeeds("CadFact_SpreadPeriodDateEdition",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  element<Type_CadencierFact>(contract->TabCadFact, 0).Transfere = VARIANT_FALSE;
                  const auto watch = scene.watch(contract);
                  short result = 0;
                  return object.CadFact_SpreadPeriodDateEdition(contract, 3, Text(L"15/02/25"), VARIANT_TRUE,
                                                                &result);
                })
      .fails("CadFact_SpreadPeriodDateEdition", Fault::TypeMismatch, [](Scene& scene, _ContratDoc& object) {
        auto contract = billed_contract();
        set(element<Type_CadencierFact>(contract->TabCadFact, 2).DateFin, L"jamais");
        const auto watch = scene.watch(contract);
        short result = 0;
        return object.CadFact_SpreadPeriodDateEdition(contract, 0, Text(L"15/08/25"), VARIANT_FALSE, &result);
      });
}

void add_row_calls(Contracts& contracts) {
  contracts
      .succeeds("AjouterCadFactCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  short index = -1;
                  const auto watch = scene.watch(contract, index);
                  short result = 0;
                  return object.AjouterCadFactCtt(contract, Text(L"05/01/2026"), Text(L"01/01/2026"),
                                                  Text(L"31/03/2026"), &index, &result);
                })
      .changing_step_by_step()
      .succeeds("AjouterCadFactCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  velmosav::erase<Type_CadencierFact>(contract->TabCadFact);
                  short index = 0;
                  const auto watch = scene.watch(contract, index);
                  short result = 0;
                  return object.AjouterCadFactCtt(contract, Text(L"05/01/2025"), Text(L"01/01/2025"),
                                                  Text(L"31/03/2025"), &index, &result);
                })
      .changing_step_by_step()
      .fails("AjouterCadFactCtt", Fault::TypeMismatch,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = billed_contract();
               short index = 2;
               const auto watch = scene.watch(contract, index);
               short result = 0;
               return object.AjouterCadFactCtt(contract, Text(L"05/01/2026"), Text(L"01/01/2026"),
                                               Text(L"jamais"), &index, &result);
             })
      .changing_step_by_step()
      .succeeds("GetLastDatePeriode",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  Text result;
                  return object.GetLastDatePeriode(contract, VARIANT_TRUE, Text(L"01/01/2030"), &result);
                })
      .fails("GetLastDatePeriode", E_POINTER,
             [](Scene&, _ContratDoc& object) {
               Text result;
               return object.GetLastDatePeriode(nullptr, VARIANT_TRUE, Text(L"01/01/2030"), &result);
             })
      .succeeds("SetDateByDuree",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"SetDateByDuree",
                                      arguments(text_value(L"01/01/2026"), Variant(12L), text_value(L"m")));
                })
      .fails("SetDateByDuree", Fault::InvalidArgument, [](Scene&, _ContratDoc& object) {
        Text result;
        return object.SetDateByDuree(Text(L"01/01/2026"), 99999999, Text(L"j"), &result);
      });
}

void add_count_calls(Contracts& contracts) {
  using Count = HRESULT (STDMETHODCALLTYPE _ContratDoc::*)(Type_Contrat*, short*);
  struct Method {
    const char* name;
    Count count;
  };
  for (const auto& [name, count] :
       {Method{"NbrCadFact", &_ContratDoc::NbrCadFact},
        Method{"NbrCadFactFacture", &_ContratDoc::NbrCadFactFacture},
        Method{"NbrEchP", &_ContratDoc::NbrEchP}, Method{"IsEchCttForcee", &_ContratDoc::IsEchCttForcee}}) {
    contracts
        .succeeds(name,
                  [count](Scene& scene, _ContratDoc& object) {
                    auto contract = billed_contract();
                    const auto watch = scene.watch(contract);
                    short result = 0;
                    return (object.*count)(contract, &result);
                  })
        .fails(name, E_POINTER, [count](Scene&, _ContratDoc& object) {
          short result = 0;
          return (object.*count)(nullptr, &result);
        });
  }
  contracts
      .succeeds("IsEchCttTransferee",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  Variant billing = text_value(L"0"), interventions(-1L), number = text_value(L"3");
                  const auto watch = scene.watch(contract, billing, interventions, number);
                  VARIANT_BOOL result = 0;
                  return object.IsEchCttTransferee(contract, &billing.get(), &interventions.get(),
                                                   &number.get(), &result);
                })
      .changing_step_by_step()
      .fails("IsEchCttTransferee", Fault::TypeMismatch, [](Scene& scene, _ContratDoc& object) {
        auto contract = visited_contract();
        Variant billing = text_value(L"peut-être"), interventions = missing();
        const auto watch = scene.watch(contract, billing, interventions);
        VARIANT_BOOL result = 0;
        return object.IsEchCttTransferee(contract, &billing.get(), &interventions.get(), nullptr, &result);
      });
}

void add_amount_calls(Contracts& contracts) {
  contracts
      .succeeds("GetMttPivot",
                [](Scene& scene, IDispatch& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  const auto info = record_info<Type_Contrat>();
                  return call_by_name(object, L"GetMttPivot",
                                      arguments(record_argument(*contract, info.get())));
                })
      .fails("GetMttPivot", E_POINTER,
             [](Scene&, _ContratDoc& object) {
               double result = 0;
               return object.GetMttPivot(nullptr, &result);
             })
      .succeeds("GetMttPivotCadFact",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  double result = 0;
                  return object.GetMttPivotCadFact(&element<Type_CadencierFact>(contract->TabCadFact, 1),
                                                   &result);
                })
      .fails("GetMttPivotCadFact", E_POINTER,
             [](Scene&, _ContratDoc& object) {
               double result = 0;
               return object.GetMttPivotCadFact(nullptr, &result);
             })
      .succeeds("GetMttCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  Variant ht = text_value(L"avant"), ttc;
                  const auto watch = scene.watch(contract, ht, ttc);
                  double result = 0;
                  return object.GetMttCtt(contract, &ht.get(), &ttc.get(), &result);
                })
      .fails("GetMttCtt", Fault::Overflow,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = billed_contract();
               for (unsigned long i = 0; i < 2; ++i)
                 element<Type_CadencierFact>(contract->TabCadFact, i).MontantHT = 1.7e308;
               const auto watch = scene.watch(contract);
               double result = 0;
               return object.GetMttCtt(contract, nullptr, nullptr, &result);
             })
      .succeeds("CalculSommeMtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  return object.CalculSommeMtt(contract, 2);
                })
      .fails("CalculSommeMtt", Fault::Overflow,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = billed_contract();
               const auto watch = scene.watch(contract);
               return object.CalculSommeMtt(contract, -1);
             })
      .changing_step_by_step()
      .succeeds("CalculMttBrut",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  return object.CalculMttBrut(contract, 2);
                })
      .fails("CalculMttBrut", Fault::DivisionByZero,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = billed_contract();
               contract->Remise = 100;
               const auto watch = scene.watch(contract);
               return object.CalculMttBrut(contract, 2);
             })
      .succeeds("GetMttEchTransf",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = billed_contract();
                  const auto watch = scene.watch(contract);
                  CY result{};
                  return object.GetMttEchTransf(contract, text_value(L" H ").get(), &result);
                })
      .fails("GetMttEchTransf", Fault::InvalidUseOfNull, [](Scene& scene, _ContratDoc& object) {
        auto contract = billed_contract();
        const auto watch = scene.watch(contract);
        CY result{};
        return object.GetMttEchTransf(contract, null_value().get(), &result);
      });
}

}  // namespace

void add_contract_calls(Calls& calls) {
  Contracts contracts(calls, L"ContratDoc");
  add_period_calls(contracts);
  add_row_calls(contracts);
  add_count_calls(contracts);
  add_amount_calls(contracts);
}

}  // namespace host
