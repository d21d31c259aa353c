// Faults of the amount arithmetic and of the VAT distribution.
#include <cstring>

#include "atomicity/fault_case.h"

namespace atomicity {
namespace {

HRESULT read(World& world) {
  static const Type_RepartTVA kEmpty{};
  Type_RepartTVA result;
  std::memset(&result, 0x55, sizeof result);
  IDispatch* table = world.order->oTVADoc;
  const HRESULT code = distributions()->ReadRepartTVA(&table, &world.number, world.text, 100,
                                                      world.value.get(), world.other_number, &result);
  EXPECT_EQ(0, std::memcmp(&kEmpty, &result, sizeof result));
  return code;
}

HRESULT spread(World& world) {
  IDispatch* table = nullptr;
  return distributions()->GetAmountByRepartTVA(&table, world.distribution, world.real, world.value.get(),
                                               world.other_number, world.real_result());
}

void read_text(World& world, const wchar_t* text) {
  world.text = Text(text);
  world.value = host::missing();
  world.number = 7;
}

}  // namespace

std::vector<FaultCase> amount_faults() {
  return {
      {L"Outil", L"DLL_GetAmountHTByTTC", "a rate of -100 %", 11,
       [](World& world) { return tools()->DLL_GetAmountHTByTTC(-100, 120, 2, world.real_result()); }},
      {L"Outil", L"DLL_GetAmountDiscounted", "a discount of 100 %", 11,
       [](World& world) { return tools()->DLL_GetAmountDiscounted(90, 100, 2, world.real_result()); }},
      {L"Outil", L"DLL_GetAmountTTCByHT", "an amount that becomes too large", 6,
       [](World& world) { return tools()->DLL_GetAmountTTCByHT(1e10, 1e307, 2, world.real_result()); }},
      {L"Outil", L"DLL_GetAmountTVA", "a rate of -100 %", 11,
       [](World& world) { return tools()->DLL_GetAmountTVA(-100, 120, Text(L"T"), 2, world.real_result()); }},
      {L"TvaRepart", L"ReadRepartTVA", "a text that is no distribution", 13, read,
       [](World& world) { read_text(world, L"x@100@"); }},
      {L"TvaRepart", L"ReadRepartTVA", "a share that is no number", 13, read,
       [](World& world) { read_text(world, L"1@cent@"); }},
      {L"TvaRepart", L"ReadRepartTVA", "a code past the last line", 9, read,
       [](World& world) { read_text(world, L"1@50@120@50@"); }},
      {L"TvaRepart", L"ReadRepartTVA", "a code beyond 8 bits", 6, read,
       [](World& world) { read_text(world, L"300@100@"); }},
      {L"TvaRepart", L"ReadRepartTVA", "Null as tariff", 94, read,
       [](World& world) {
         read_text(world, L"1@100@");
         world.value = host::null_value();
       }},
      {L"TvaRepart", L"ReadRepartTVA", "a negative number of decimals", 6, read,
       [](World& world) {
         read_text(world, L"1@100@");
         world.other_number = -1;
       }},
      {L"TvaRepart", L"GetAmountByRepartTVA", "Null as tariff", 94, spread,
       [](World& world) {
         world.real = 100;
         world.value = host::null_value();
       }},
      {L"TvaRepart",
       L"GetAmountByRepartTVA",
       "a share that is too large",
       6,
       spread,
       [](World& world) {
         world.real = 1e10;
         world.value = host::missing();
         world.distribution->Lignes[2].Pourcent = 1e305;
       },
       {},
       {"distribution.Lignes(1).MontantBase"}},
      {L"TvaRepart",
       L"GetAmountByRepartTVA",
       "a rate of -100 % on an amount after tax",
       11,
       spread,
       [](World& world) {
         world.real = 100;
         world.value = host::text_value(L"T");
         world.distribution->Lignes[2].TauxTva = -100;
       },
       {},
       {"distribution.Lignes(1).MontantBase", "distribution.Lignes(1).MontantTVA",
        "distribution.Lignes(2).MontantBase"}},
  };
}

}  // namespace atomicity
