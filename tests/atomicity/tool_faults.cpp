// Faults of durations, code lists, formats, control helpers and translation.
#include "atomicity/fault_case.h"

namespace atomicity {
namespace {

constexpr wchar_t kClass[] = L"Outil";

HRESULT write_duration(World& world) {
  return tools()->DoubleToDuree(&world.real, world.text.in_out(), &world.array, world.text_result());
}
HRESULT read_duration(World& world) {
  return tools()->DureeToDouble(world.text.in_out(), world.other_text.in_out(), &world.flag,
                                world.real_result());
}
HRESULT fit_label(World& world) {
  return tools()->SetLabelHauteur(world.order->oTVADoc, Text(L"texte"), world.value.get(), left_out(),
                                  left_out());
}
HRESULT check_format(World& world, const wchar_t* format) {
  return tools()->CheckFmtSaisNum(Text(format), 1, world.truth_result());
}
HRESULT hovered(World& world) {
  VARIANT result{};
  result.vt = VT_I4;
  const HRESULT code =
      tools()->GetValScrollSurvol(&world.order->oTVADoc, &world.number, &world.other_number, &result);
  EXPECT_EQ(VT_EMPTY, result.vt);
  return code;
}

}  // namespace

std::vector<FaultCase> tool_faults() {
  return {
      {kClass, L"DoubleToDuree", "fields that were never dimensioned", 9, write_duration},
      {kClass, L"DoubleToDuree", "fields of elements of another size", 13, write_duration,
       [](World& world) { world.array = SafeArrayCreateVector(VT_BSTR, 0, 2); }},
      {kClass, L"DureeToDouble", "hours beyond 32 bits", 6, read_duration,
       [](World& world) {
         world.text = Text(L"99999999999:00");
         world.other_text = Text(L"h");
       }},
      {kClass, L"ListeCodes_NbCodes", "a list without quotes", 6,
       [](World& world) { return tools()->ListeCodes_NbCodes(Text(L"A, B"), world.short_result()); }},
      {kClass, L"CheckFmtSaisNum", "a negative number of digits", 5,
       [](World& world) { return check_format(world, L"N;-1.2;B"); }},
      {kClass, L"CheckFmtSaisNum", "a number of digits beyond 16 bits", 6,
       [](World& world) { return check_format(world, L"N;99999.2;B"); }},
      {kClass, L"CheckFmtNum", "no control", 91,
       [](World& world) {
         IDispatch* none = nullptr;
         return tools()->CheckFmtNum(&none, &world.value.get(), world.truth_result());
       }},
      {kClass, L"SetLabelHauteur", "Null as width", 94, fit_label,
       [](World& world) { world.value = host::null_value(); }},
      {kClass, L"SetLabelHauteur", "an object that is no label", 438, fit_label,
       [](World& world) { world.value = Variant(100L); }},
      {kClass, L"SetRegionStdBout", "an object that is no button", 438,
       [](World& world) { return tools()->SetRegionStdBout(&world.order->oTVADoc); }},
      {kClass, L"GetValScrollSurvol", "an object that is no grid", 438, hovered},
      {kClass, L"GestionColQte", "no column", 91,
       [](World&) {
         IDispatch* none = nullptr;
         return tools()->GestionColQte(&none, nullptr, 2, nullptr, nullptr, VARIANT_FALSE);
       }},
      {kClass, L"GestionColQte", "an object that is no column", 438,
       [](World& world) {
         return tools()->GestionColQte(&world.order->oTVADoc, nullptr, 2, nullptr, nullptr, VARIANT_FALSE);
       }},
      {L"ClsDLLTrad", L"InitConstTrad", "no link", 91,
       [](World&) { return host::create<_ClsDLLTrad>(L"ClsDLLTrad")->InitConstTrad(); }},
      {L"ClsDLLTrad", L"DLL_InitialisationTrad", "a host without link class", 429,
       [](World& world) {
         return host::create<_ClsDLLTrad>(L"ClsDLLTrad")->DLL_InitialisationTrad(world.text.in_out());
       },
       [](World& world) { world.text = Text(L"AucunHote"); }},
  };
}

}  // namespace atomicity
