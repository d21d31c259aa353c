// Calls of TvaRepart.
#include "amounts/vat_table.h"
#include "memory/catalogue.h"

namespace host {

void add_amount_calls(Calls& calls) {
  CallsOf<_TvaRepart>(calls, L"TvaRepart")
      .succeeds("WriteRepartTVA",
                [](Scene& scene, _TvaRepart& object) {
                  auto split = standard_rates();
                  set_line(*split, 1, 33.333);
                  set_line(*split, 3, 66.667);
                  const auto watch = scene.watch(split);
                  short code = 0;
                  Text result;
                  return object.WriteRepartTVA(split, &code, &result);
                })
      .fails("WriteRepartTVA", E_POINTER,
             [](Scene&, _TvaRepart& object) {
               Text result;
               return object.WriteRepartTVA(nullptr, nullptr, &result);
             })
      .succeeds("GetStrRepartByCodeTVA",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"GetStrRepartByCodeTVA", arguments(Variant(3L)));
                })
      .fails("GetStrRepartByCodeTVA", E_POINTER,
             [](Scene&, _TvaRepart& object) { return object.GetStrRepartByCodeTVA(Text(L"3"), nullptr); })
      .succeeds("ReadRepartTVA",
                [](Scene& scene, _TvaRepart& object) {
                  auto table = VatTable::standard();
                  short code = 1;
                  const auto watch = scene.watch(code);
                  Record<Type_RepartTVA> result;
                  return object.ReadRepartTVA(table.argument(), &code, Text(L"1@60,00@2@40@"), 250,
                                              text_value(L"H").get(), 2, result);
                })
      .skipping_failures()
      .fails("ReadRepartTVA", Fault::TypeMismatch,
             [](Scene& scene, _TvaRepart& object) {
               auto table = VatTable::standard();
               short code = 1;
               const auto watch = scene.watch(code);
               Record<Type_RepartTVA> result;
               return object.ReadRepartTVA(table.argument(), &code, Text(L"1@beaucoup@"), 250,
                                           text_value(L"H").get(), 2, result);
             })
      .succeeds("GetAmountByRepartTVA",
                [](Scene& scene, _TvaRepart& object) {
                  auto table = VatTable::standard();
                  auto split = standard_rates();
                  set_line(*split, 1, 100);
                  const auto watch = scene.watch(split);
                  double result = 0;
                  return object.GetAmountByRepartTVA(table.argument(), split, 250, missing().get(), 2,
                                                     &result);
                })
      .fails("GetAmountByRepartTVA", Fault::InvalidUseOfNull, [](Scene& scene, _TvaRepart& object) {
        auto table = VatTable::standard();
        auto split = standard_rates();
        set_line(*split, 1, 100);
        const auto watch = scene.watch(split);
        double result = 0;
        return object.GetAmountByRepartTVA(table.argument(), split, 250, null_value().get(), 2, &result);
      });
}

}  // namespace host
