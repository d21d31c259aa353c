// Calls of Bon, Couverture and Intervention.
#include "documents/coverage_list.h"
#include "documents/object_array.h"
#include "memory/catalogue.h"
#include "memory/documents.h"

namespace host {
namespace {

void add_work_order_calls(Calls& calls) {
  CallsOf<_Bon>(calls, L"Bon")
      .succeeds("NbrArtBon",
                [](Scene& scene, IDispatch& object) {
                  auto order = full_work_order();
                  const auto watch = scene.watch(order);
                  const auto info = record_info<Type_Bon>();
                  return call_by_name(object, L"NbrArtBon", arguments(record_argument(*order, info.get())));
                })
      .fails("NbrArtBon", E_POINTER,
             [](Scene&, _Bon& object) {
               short result = 0;
               return object.NbrArtBon(nullptr, &result);
             })
      .succeeds("GetDureeTotPlages",
                [](Scene& scene, _Bon& object) {
                  Record<Type_LigneRessource> technician;
                  add_slots(*technician);
                  const auto watch = scene.watch(technician);
                  double result = 0;
                  return object.GetDureeTotPlages(Text(L"h"), technician, &result);
                })
      .fails("GetDureeTotPlages", Fault::TypeMismatch,
             [](Scene& scene, _Bon& object) {
               Record<Type_LigneRessource> technician;
               add_slots(*technician);
               set(element<Type_BarTime>(technician->TabPlage, 1).HeureFin, L"midi");
               const auto watch = scene.watch(technician);
               double result = 0;
               return object.GetDureeTotPlages(Text(L"h"), technician, &result);
             })
      .succeeds("RazTabApp",
                [](Scene&, _Bon& object) {
                  SAFEARRAY* equipment = Objects(3).array_of({{3, 0}});
                  const HRESULT code = object.RazTabApp(&equipment);
                  if (equipment) SafeArrayDestroy(equipment);
                  return code;
                })
      .fails("RazTabApp", Fault::ArrayLocked,
             [](Scene&, _Bon& object) {
               SAFEARRAY* equipment = Objects(3).array_of({{3, 0}});
               HRESULT code = S_OK;
               {
                 const LockedArray lock(equipment);
                 code = object.RazTabApp(&equipment);
               }
               SafeArrayDestroy(equipment);
               return code;
             })
      .succeeds("RazDocInt",
                [](Scene& scene, _Bon& object) {
                  auto order = full_work_order();
                  const auto watch = scene.watch(order);
                  return object.RazDocInt(order, VARIANT_TRUE);
                })
      .fails("RazDocInt", Fault::ArrayLocked, [](Scene& scene, _Bon& object) {
        auto order = full_work_order();
        const auto watch = scene.watch(order);
        const LockedArray lock(order->TabArticle);
        return object.RazDocInt(order, VARIANT_TRUE);
      });
}

void add_coverage_calls(Calls& calls) {
  CallsOf<_Couverture>(calls, L"Couverture")
      .succeeds("InitLigneCouverture",
                [](Scene& scene, _Couverture& object) {
                  Record<Type_LigneCouverture> line;
                  fill_line(*line, L"PIECE");
                  const auto watch = scene.watch(line);
                  return object.InitLigneCouverture(line);
                })
      .fails("InitLigneCouverture", E_POINTER,
             [](Scene&, _Couverture& object) { return object.InitLigneCouverture(nullptr); })
      .succeeds("InsererLigCouverture",
                [](Scene& scene, _Couverture& object) {
                  auto coverage = coverage_of({L"A", L"B", L"C"});
                  const auto watch = scene.watch(coverage);
                  return object.InsererLigCouverture(coverage, text_value(L"1").get());
                })
      .succeeds("InsererLigCouverture",
                [](Scene& scene, IDispatch& object) {
                  auto coverage = coverage_of({});
                  const auto watch = scene.watch(coverage);
                  const auto info = record_info<Type_Couverture>();
                  return call_by_name(object, L"InsererLigCouverture",
                                      arguments(record_argument(*coverage, info.get())));
                })
      .fails("InsererLigCouverture", Fault::SubscriptOutOfRange,
             [](Scene& scene, _Couverture& object) {
               auto coverage = coverage_of({L"A", L"B", L"C"});
               const auto watch = scene.watch(coverage);
               return object.InsererLigCouverture(coverage, Variant(-2L).get());
             })
      .succeeds("ArtDejaPresent",
                [](Scene& scene, _Couverture& object) {
                  auto coverage = coverage_of({L"A", L"B", L"C"});
                  const auto watch = scene.watch(coverage);
                  VARIANT_BOOL result = 0;
                  return object.ArtDejaPresent(Text(L"C"), coverage, text_value(L"0").get(), &result);
                })
      .fails("ArtDejaPresent", Fault::TypeMismatch,
             [](Scene& scene, _Couverture& object) {
               auto coverage = coverage_of({L"A", L"B", L"C"});
               const auto watch = scene.watch(coverage);
               VARIANT_BOOL result = 0;
               return object.ArtDejaPresent(Text(L"C"), coverage, text_value(L"deux").get(), &result);
             })
      .succeeds("NbrArticle",
                [](Scene& scene, _Couverture& object) {
                  auto coverage = coverage_of({L"A", L"B", L"C"});
                  const auto watch = scene.watch(coverage);
                  short result = 0;
                  return object.NbrArticle(coverage, &result);
                })
      .fails("NbrArticle", E_POINTER,
             [](Scene&, _Couverture& object) {
               short result = 0;
               return object.NbrArticle(nullptr, &result);
             })
      .succeeds("RazCouv",
                [](Scene& scene, _Couverture& object) {
                  auto coverage = coverage_of({L"A", L"B", L"C"});
                  const auto watch = scene.watch(coverage);
                  return object.RazCouv(coverage);
                })
      .fails("RazCouv", Fault::ArrayLocked, [](Scene& scene, _Couverture& object) {
        auto coverage = coverage_of({L"A", L"B", L"C"});
        const auto watch = scene.watch(coverage);
        const LockedArray lock(coverage->Liste);
        return object.RazCouv(coverage);
      });
}

void add_intervention_calls(Calls& calls) {
  CallsOf<_Intervention>(calls, L"Intervention")
      .succeeds("RazInterv",
                [](Scene& scene, _Intervention& object) {
                  auto intervention = full_intervention();
                  const auto watch = scene.watch(intervention);
                  return object.RazInterv(intervention);
                })
      .fails("RazInterv", Fault::ArrayLocked,
             [](Scene& scene, _Intervention& object) {
               auto intervention = full_intervention();
               const auto watch = scene.watch(intervention);
               const LockedArray lock(intervention->Couverture.Liste);
               return object.RazInterv(intervention);
             })
      .succeeds("NbrAppareil",
                [](Scene& scene, _Intervention& object) {
                  auto intervention = full_intervention();
                  const auto watch = scene.watch(intervention);
                  short result = 0;
                  return object.NbrAppareil(intervention, &result);
                })
      .fails("NbrAppareil", E_POINTER,
             [](Scene&, _Intervention& object) {
               short result = 0;
               return object.NbrAppareil(nullptr, &result);
             })
      .succeeds("NbrRessources",
                [](Scene& scene, _Intervention& object) {
                  auto intervention = full_intervention();
                  const auto watch = scene.watch(intervention);
                  short result = 0;
                  return object.NbrRessources(intervention, &result);
                })
      .fails("NbrRessources", E_POINTER, [](Scene&, _Intervention& object) {
        short result = 0;
        return object.NbrRessources(nullptr, &result);
      });
}

}  // namespace

void add_document_calls(Calls& calls) {
  add_work_order_calls(calls);
  add_coverage_calls(calls);
  add_intervention_calls(calls);
}

}  // namespace host
