// Calls of ContratDoc: sites, interventions and the two menus.
#include "memory/catalogue.h"
#include "memory/documents.h"
#include "menus/scripted_popup.h"

namespace host {
namespace {

using Contracts = CallsOf<_ContratDoc>;

/// A contract whose interventions were never dimensioned.
Record<Type_Contrat> contract_without_visits() {
  auto contract = visited_contract();
  velmosav::erase<Type_Intervention>(contract->TabInterv);
  return contract;
}

void add_count_calls(Contracts& contracts) {
  contracts
      .succeeds("NbrInterv",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  const auto watch = scene.watch(contract);
                  short result = 0;
                  return object.NbrInterv(contract, &result);
                })
      .fails("NbrInterv", E_POINTER,
             [](Scene&, _ContratDoc& object) {
               short result = 0;
               return object.NbrInterv(nullptr, &result);
             })
      .succeeds("NbrCadInterv",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  const auto watch = scene.watch(contract);
                  short result = 0;
                  return object.NbrCadInterv(contract, &result);
                })
      .fails("NbrCadInterv", Fault::TypeMismatch, [](Scene&, _ContratDoc& object) {
        auto contract = visited_contract();
        velmosav::erase<Type_CadencierInterv>(contract->TabCadInterv);
        contract->TabCadInterv = make_array(4, 2);  // elements of another kind
        short result = 0;
        return object.NbrCadInterv(contract, &result);
      });
}

void add_site_number_calls(Contracts& contracts) {
  contracts
      .succeeds("FirstIntervSite",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  short number = 1;
                  VARIANT_BOOL following = VARIANT_TRUE, previous = VARIANT_FALSE;
                  const auto watch = scene.watch(contract, number);
                  short result = 0;
                  return object.FirstIntervSite(contract, &number, &following, &previous, &result);
                })
      .fails("FirstIntervSite", Fault::SubscriptOutOfRange,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = visited_contract();
               short number = 99;
               const auto watch = scene.watch(contract, number);
               short result = 0;
               return object.FirstIntervSite(contract, &number, nullptr, nullptr, &result);
             })
      .succeeds("GetNumSite_Dll",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  short number = 3;
                  const auto watch = scene.watch(contract, number);
                  short result = 0;
                  return object.GetNumSite_Dll(contract, &number, &result);
                })
      .fails("GetNumSite_Dll", Fault::SubscriptOutOfRange,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = contract_without_visits();
               short number = 0;
               const auto watch = scene.watch(contract, number);
               short result = 0;
               return object.GetNumSite_Dll(contract, &number, &result);
             })
      .succeeds("GetIndByNumSite",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  short number = 2;
                  const auto watch = scene.watch(contract, number);
                  short result = 0;
                  return object.GetIndByNumSite(contract, &number, &result);
                })
      .fails("GetIndByNumSite", Fault::SubscriptOutOfRange,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = contract_without_visits();
               short number = 1;
               const auto watch = scene.watch(contract, number);
               short result = 0;
               return object.GetIndByNumSite(contract, &number, &result);
             })
      .succeeds("ListeSitesCttSQL",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  set(element<Type_Intervention>(contract->TabInterv, 4).CodeSite,
                      L"Établissement de la zone industrielle");
                  const auto watch = scene.watch(contract);
                  Text result;
                  return object.ListeSitesCttSQL(contract, &result);
                })
      .fails("ListeSitesCttSQL", Fault::SubscriptOutOfRange, [](Scene& scene, _ContratDoc& object) {
        auto contract = contract_without_visits();
        const auto watch = scene.watch(contract);
        Text result;
        return object.ListeSitesCttSQL(contract, &result);
      });
}

void add_check_calls(Contracts& contracts) {
  contracts
      .succeeds("CheckDateInterCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  const auto watch = scene.watch(contract);
                  VARIANT_BOOL result = 0;
                  return object.CheckDateInterCtt(2, contract, &result);
                })
      .changing_step_by_step()
      .fails("CheckDateInterCtt", Fault::SubscriptOutOfRange,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = visited_contract();
               const auto watch = scene.watch(contract);
               VARIANT_BOOL result = 0;
               return object.CheckDateInterCtt(99, contract, &result);
             })
      .succeeds("CheckLibInterCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  Variant index = text_value(L"avant");
                  const auto watch = scene.watch(contract, index);
                  VARIANT_BOOL result = 0;
                  return object.CheckLibInterCtt(contract, &index.get(), &result);
                })
      .fails("CheckLibInterCtt", E_POINTER,
             [](Scene&, _ContratDoc& object) {
               VARIANT_BOOL result = 0;
               return object.CheckLibInterCtt(nullptr, nullptr, &result);
             })
      .succeeds("IsInfosIntervModifiable",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  const auto watch = scene.watch(contract);
                  VARIANT_BOOL result = 0;
                  return object.IsInfosIntervModifiable(contract, text_value(L"3").get(), &result);
                })
      .fails("IsInfosIntervModifiable", Fault::SubscriptOutOfRange,
             [](Scene& scene, IDispatch& object) {
               auto contract = visited_contract();
               const auto watch = scene.watch(contract);
               const auto info = record_info<Type_Contrat>();
               return call_by_name(object, L"IsInfosIntervModifiable",
                                   arguments(record_argument(*contract, info.get()), Variant(99L)));
             })
      .succeeds("CheckPreavisDocCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  const auto watch = scene.watch(contract);
                  VARIANT_BOOL result = 0;
                  return object.CheckPreavisDocCtt(contract, VARIANT_FALSE, &result);
                })
      .fails("CheckPreavisDocCtt", Fault::TypeMismatch,
             [](Scene& scene, _ContratDoc& object) {
               auto contract = visited_contract();
               set(contract->DateDeb, L"un jour");
               const auto watch = scene.watch(contract);
               VARIANT_BOOL result = 0;
               return object.CheckPreavisDocCtt(contract, VARIANT_FALSE, &result);
             })
      .succeeds("RazDocCtt",
                [](Scene& scene, _ContratDoc& object) {
                  auto contract = visited_contract();
                  const auto watch = scene.watch(contract);
                  return object.RazDocCtt(contract);
                })
      .fails("RazDocCtt", Fault::ArrayLocked, [](Scene& scene, _ContratDoc& object) {
        auto contract = visited_contract();
        const auto watch = scene.watch(contract);
        const LockedArray lock(contract->TabCadInterv);
        return object.RazDocCtt(contract);
      });
}

/// A menu of the test behind the component's ProgID, and a button.
struct Menu {
  Menu() { button->property(L"hWnd", Variant(4660L)); }
  ScriptedPopup popup{text_value(L"1")};
  ComPtr<FakeObject> button = FakeObject::make();
};

void add_menu_calls(Contracts& contracts) {
  auto menu = [held = std::shared_ptr<Menu>()]() mutable -> Menu& {
    if (!held) held = std::make_shared<Menu>();
    held->popup.calls.clear();
    held->button->log.clear();
    held->popup.object()->log.clear();
    return *held;
  };
  contracts
      .succeeds("OpenPopupMenu_CttInterv",
                [menu](Scene&, _ContratDoc& object) mutable {
                  IDispatch* button = menu().button.get();
                  IndMenuPop result{};
                  return object.OpenPopupMenu_CttInterv(&button, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                                        &result);
                })
      .fails("OpenPopupMenu_CttInterv", Fault::ObjectNotSet,
             [menu](Scene&, _ContratDoc& object) mutable {
               menu();
               IDispatch* none = nullptr;
               IndMenuPop result{};
               return object.OpenPopupMenu_CttInterv(&none, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                                     &result);
             })
      .succeeds("OpenPopupMenu_CttSite",
                [menu](Scene&, IDispatch& object) mutable {
                  return call_by_name(object, L"OpenPopupMenu_CttSite",
                                      arguments(object_value(menu().button.get())));
                })
      .fails("OpenPopupMenu_CttSite", E_POINTER, [](Scene&, _ContratDoc& object) {
        IndMenuPop result{};
        return object.OpenPopupMenu_CttSite(nullptr, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                            &result);
      });
}

}  // namespace

void add_site_calls(Calls& calls) {
  Contracts contracts(calls, L"ContratDoc");
  add_count_calls(contracts);
  add_site_number_calls(contracts);
  add_check_calls(contracts);
  add_menu_calls(contracts);
}

}  // namespace host
