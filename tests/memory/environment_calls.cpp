// Calls of General, Droits, Reconduction, ApiGeneral and ClsDLLTrad.
#include "memory/catalogue.h"
#include "services/renewal_grid.h"
#include "services/translation_host.h"

namespace host {
namespace {

void add_general_calls(Calls& calls) {
  CallsOf<_General>(calls, L"General")
      .succeeds("GetNomTableByTypeDoc",
                [](Scene&, _General& object) {
                  Text result;
                  return object.GetNomTableByTypeDoc(Text(L"C"), &result);
                })
      .fails("GetNomTableByTypeDoc", E_POINTER,
             [](Scene&, _General& object) { return object.GetNomTableByTypeDoc(Text(L"C"), nullptr); })
      .succeeds("GetTypeDocByProv",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"GetTypeDocByProv", arguments(text_value(L"Contrat")));
                })
      .fails("GetTypeDocByProv", E_POINTER,
             [](Scene&, _General& object) { return object.GetTypeDocByProv(Text(L"Contrat"), nullptr); })
      .succeeds("GetProvByTypeDocSAV",
                [](Scene&, _General& object) {
                  Text result;
                  return object.GetProvByTypeDocSAV(Text(L"C"), &result);
                })
      .fails("GetProvByTypeDocSAV", E_POINTER,
             [](Scene&, _General& object) { return object.GetProvByTypeDocSAV(Text(L"C"), nullptr); })
      .succeeds("GetFmtSaisDureeUnit",
                [](Scene& scene, _General& object) {
                  Text unit(L"inconnue");
                  short value = 9999;
                  const auto watch = scene.watch(unit, value);
                  Text result;
                  return object.GetFmtSaisDureeUnit(unit.in_out(), &value, &result);
                })
      .fails("GetFmtSaisDureeUnit", E_POINTER, [](Scene&, _General& object) {
        short value = 9999;
        Text result;
        return object.GetFmtSaisDureeUnit(nullptr, &value, &result);
      });
}

void add_small_classes(Calls& calls) {
  CallsOf<_Droits>(calls, L"Droits")
      .succeeds("GetDroitByTypeDoc",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"GetDroitByTypeDoc", arguments(text_value(L"C")));
                })
      .fails("GetDroitByTypeDoc", E_POINTER, [](Scene&, _Droits& object) {
        return object.GetDroitByTypeDoc(Text(L"C"), VARIANT_TRUE, nullptr);
      });
  CallsOf<_Reconduction>(calls, L"Reconduction")
      .succeeds("bDiffLigneTab",
                [](Scene&, _Reconduction& object) {
                  RenewalGrid grid(2);
                  grid.set_equal(0, 12.5);
                  VARIANT_BOOL result = 0;
                  return object.bDiffLigneTab(grid.argument(), 0, &result);
                })
      .fails("bDiffLigneTab", Fault::InvalidUseOfNull, [](Scene&, _Reconduction& object) {
        RenewalGrid grid(2);
        grid.set(0, 8, null_value());
        VARIANT_BOOL result = 0;
        return object.bDiffLigneTab(grid.argument(), 0, &result);
      });
  CallsOf<_ApiGeneral>(calls, L"ApiGeneral")
      .succeeds("RemplaceTxt",
                [](Scene& scene, _ApiGeneral& object) {
                  Text text(L"Rue du Port, PORT-SAINT-LOUIS");
                  const auto watch = scene.watch(text);
                  return object.RemplaceTxt(text.in_out(), Text(L"port"), Text(L"Havre-de-Grâce"));
                })
      .fails("RemplaceTxt", E_POINTER, [](Scene&, _ApiGeneral& object) {
        return object.RemplaceTxt(nullptr, Text(L"port"), Text(L"havre"));
      });
}

/// A host whose link answers every identifier.
struct Link {
  explicit Link(const wchar_t* name) : host(name) {}
  TranslationHost host;
  void forget() {
    host.requests.clear();
    host.links.clear();
  }
};

void add_translation_calls(Calls& calls) {
  CallsOf<_ClsDLLTrad>(calls, L"ClsDLLTrad")
      .succeeds("DLL_InitialisationTrad",
                [link = std::shared_ptr<Link>()](Scene& scene, _ClsDLLTrad& object) mutable {
                  if (!link) link = std::make_shared<Link>(L"TestHote");
                  link->forget();
                  Text program(L"TestHote");
                  const auto watch = scene.watch(program);
                  return object.DLL_InitialisationTrad(program.in_out());
                })
      .fails("DLL_InitialisationTrad", Fault::CannotCreateObject,
             [](Scene& scene, _ClsDLLTrad& object) {
               Text program(L"AucunHote");
               const auto watch = scene.watch(program);
               return object.DLL_InitialisationTrad(program.in_out());
             })
      .succeeds("InitConstTrad",
                [link = std::shared_ptr<Link>()](Scene&, _ClsDLLTrad& object) mutable {
                  if (!link) {
                    link = std::make_shared<Link>(L"AutreHote");
                    Text program(L"AutreHote");
                    EXPECT_EQ(S_OK, object.DLL_InitialisationTrad(program.in_out()));
                  }
                  link->host.requests.clear();
                  for (const auto& translator : link->host.links) translator->log.clear();
                  return object.InitConstTrad();
                })
      .fails("InitConstTrad", Fault::ObjectNotSet,
             [](Scene&, _ClsDLLTrad& object) { return object.InitConstTrad(); });
}

}  // namespace

void add_environment_calls(Calls& calls) {
  add_general_calls(calls);
  add_small_classes(calls);
  add_translation_calls(calls);
}

}  // namespace host
