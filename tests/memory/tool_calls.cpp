// Calls of Outil without controls: amounts, durations, code lists, input formats.
#include "memory/catalogue.h"

namespace host {
namespace {

using Tools = CallsOf<_Outil>;

void add_amount_calls(Tools& tools) {
  tools
      .succeeds("DLL_GetAmountHTByTTC",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"DLL_GetAmountHTByTTC",
                                      arguments(text_value(L"20"), Variant(120L)));
                })
      .fails("DLL_GetAmountHTByTTC", Fault::DivisionByZero,
             [](Scene&, _Outil& object) {
               double result = 0;
               return object.DLL_GetAmountHTByTTC(-100, 120, 2, &result);
             })
      .succeeds("DLL_GetAmountDiscounted",
                [](Scene&, _Outil& object) {
                  double result = 0;
                  return object.DLL_GetAmountDiscounted(120, 10, 2, &result);
                })
      .fails("DLL_GetAmountDiscounted", Fault::DivisionByZero,
             [](Scene&, IDispatch& object) {
               return call_by_name(object, L"DLL_GetAmountDiscounted",
                                   arguments(Variant(120L), Variant(100L)));
             })
      .succeeds("DLL_GetAmountTTCByHT",
                [](Scene&, _Outil& object) {
                  double result = 0;
                  return object.DLL_GetAmountTTCByHT(20, 100, 2, &result);
                })
      .fails("DLL_GetAmountTTCByHT", Fault::Overflow,
             [](Scene&, _Outil& object) {
               double result = 0;
               return object.DLL_GetAmountTTCByHT(1e300, 1e300, 2, &result);
             })
      .succeeds("DLL_GetAmountTVA",
                [](Scene&, _Outil& object) {
                  double result = 0;
                  return object.DLL_GetAmountTVA(20, 120, Text(L"t"), 2, &result);
                })
      .fails("DLL_GetAmountTVA", Fault::DivisionByZero, [](Scene&, _Outil& object) {
        double result = 0;
        return object.DLL_GetAmountTVA(-100, 120, Text(L"T"), 2, &result);
      });
}

/// The unit codes of a duration's fields.
struct Fields {
  Fields() {
    array = SafeArrayCreateVector(VT_VARIANT, 0, 3);
    for (long i = 0; i < 3; ++i) {
      element<VARIANT>(array, static_cast<unsigned long>(i)) =
          text_value(std::wstring(1, L"hns"[i])).detach();
    }
  }
  ~Fields() { SafeArrayDestroy(array); }
  Fields(const Fields&) = delete;
  Fields& operator=(const Fields&) = delete;
  SAFEARRAY* array;
};

void add_duration_calls(Tools& tools) {
  tools
      .succeeds("DoubleToDuree",
                [](Scene& scene, _Outil& object) {
                  Fields fields;
                  double number = 12345.5;
                  Text unit(L"h");
                  const auto watch = scene.watch(number, unit, fields.array);
                  Text result;
                  return object.DoubleToDuree(&number, unit.in_out(), &fields.array, &result);
                })
      .fails("DoubleToDuree", Fault::SubscriptOutOfRange,
             [](Scene& scene, _Outil& object) {
               double number = 1.5;
               Text unit(L"h");
               SAFEARRAY* none = nullptr;
               const auto watch = scene.watch(number, unit, none);
               Text result;
               return object.DoubleToDuree(&number, unit.in_out(), &none, &result);
             })
      .succeeds("DureeToDouble",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"DureeToDouble",
                                      arguments(text_value(L"01:30:00"), text_value(L"h")));
                })
      .fails("DureeToDouble", Fault::Overflow, [](Scene& scene, _Outil& object) {
        Text duration(L"99999999999:00:00"), unit(L"h");
        const auto watch = scene.watch(duration, unit);
        double result = 0;
        return object.DureeToDouble(duration.in_out(), unit.in_out(), nullptr, &result);
      });
}

void add_list_calls(Tools& tools) {
  tools
      .succeeds("SetStringForSQL",
                [](Scene&, _Outil& object) {
                  Text result;
                  return object.SetStringForSQL(Text(L"12\" noir"), &result);
                })
      .fails("SetStringForSQL", E_POINTER,
             [](Scene&, _Outil& object) { return object.SetStringForSQL(Text(L"12"), nullptr); })
      .succeeds("ListeCodes_ConcateneCode",
                [](Scene& scene, _Outil& object) {
                  Text list(L"\"A\", \"B\"");
                  const auto watch = scene.watch(list);
                  return object.ListeCodes_ConcateneCode(list.in_out(), Text(L"C"));
                })
      .succeeds("ListeCodes_ConcateneCode",
                [](Scene&, IDispatch& object) {
                  // A script's variable that holds a number: converted, and written back as text.
                  Variant list(12L);
                  return call_by_name(object, L"ListeCodes_ConcateneCode",
                                      arguments(by_reference(list.get()), text_value(L"C")));
                })
      .fails("ListeCodes_ConcateneCode", E_POINTER,
             [](Scene&, _Outil& object) { return object.ListeCodes_ConcateneCode(nullptr, Text(L"C")); })
      .succeeds("ListeCodes_GetNextCode_Token",
                [](Scene& scene, _Outil& object) {
                  Text list(L"\"A\", \"B\"");
                  const auto watch = scene.watch(list);
                  Text result;
                  return object.ListeCodes_GetNextCode_Token(list.in_out(), &result);
                })
      .fails("ListeCodes_GetNextCode_Token", E_POINTER,
             [](Scene&, _Outil& object) {
               Text result;
               return object.ListeCodes_GetNextCode_Token(nullptr, &result);
             })
      .succeeds("ListeCodes_NbCodes",
                [](Scene&, _Outil& object) {
                  short result = 0;
                  return object.ListeCodes_NbCodes(Text(L"\"A\", \"B\""), &result);
                })
      .fails("ListeCodes_NbCodes", Fault::Overflow,
             [](Scene&, _Outil& object) {
               short result = 0;
               return object.ListeCodes_NbCodes(Text(L"A, B"), &result);
             })
      .succeeds("ListeCodes_ExtractionCode",
                [](Scene& scene, _Outil& object) {
                  Text list(L"\"A\", \"B\", \"C\"");
                  const auto watch = scene.watch(list);
                  return object.ListeCodes_ExtractionCode(list.in_out(), Text(L"B"));
                })
      .fails("ListeCodes_ExtractionCode", E_POINTER,
             [](Scene&, _Outil& object) { return object.ListeCodes_ExtractionCode(nullptr, Text(L"B")); })
      .succeeds("RemplaceChamp",
                [](Scene&, _Outil& object) {
                  Text result;
                  return object.RemplaceChamp(Text(L"a-b-c, une rue très longue"), Text(L"-"), Text(L" + "),
                                              &result);
                })
      .fails("RemplaceChamp", E_POINTER, [](Scene&, _Outil& object) {
        return object.RemplaceChamp(Text(L"a-b-c"), Text(L"-"), Text(L" + "), nullptr);
      });
}

void add_format_calls(Tools& tools) {
  tools
      .succeeds("CheckFmtSaisNum",
                [](Scene&, _Outil& object) {
                  VARIANT_BOOL result = 0;
                  return object.CheckFmtSaisNum(Text(L"N;17.12;>-5;<500;B"), 12.5, &result);
                })
      .fails("CheckFmtSaisNum", Fault::Overflow,
             [](Scene&, _Outil& object) {
               VARIANT_BOOL result = 0;
               return object.CheckFmtSaisNum(Text(L"N;99999999999.2"), 12.5, &result);
             })
      .succeeds("IsRacinesValides",
                [](Scene& scene, _Outil& object) {
                  Text roots(L" 7061 ;70A; 7;7062"), account_class(L"7"), excluded(L"8;9");
                  const auto watch = scene.watch(roots, account_class, excluded);
                  VARIANT_BOOL result = 0;
                  return object.IsRacinesValides(roots.in_out(), account_class.in_out(), excluded.in_out(),
                                                 &result);
                })
      .succeeds("IsRacinesValides",
                [](Scene& scene, _Outil& object) {
                  Text roots(L"7061;601"), account_class(L"7"), excluded(L"8;9");
                  const auto watch = scene.watch(roots, account_class, excluded);
                  VARIANT_BOOL result = 0;
                  return object.IsRacinesValides(roots.in_out(), account_class.in_out(), excluded.in_out(),
                                                 &result);
                })
      .fails("IsRacinesValides", E_POINTER,
             [](Scene&, _Outil& object) {
               VARIANT_BOOL result = 0;
               return object.IsRacinesValides(nullptr, nullptr, nullptr, &result);
             })
      .succeeds("IsCompteValide",
                [](Scene& scene, _Outil& object) {
                  Text account(L"601000");
                  const auto watch = scene.watch(account);
                  VARIANT_BOOL result = 0;
                  return object.IsCompteValide(account.in_out(), Text(L"706;707"), VARIANT_TRUE, &result);
                })
      .fails("IsCompteValide", E_POINTER, [](Scene&, _Outil& object) {
        VARIANT_BOOL result = 0;
        return object.IsCompteValide(nullptr, Text(L"706"), VARIANT_TRUE, &result);
      });
}

}  // namespace

void add_tool_calls(Calls& calls) {
  Tools tools(calls, L"Outil");
  add_amount_calls(tools);
  add_duration_calls(tools);
  add_list_calls(tools);
  add_format_calls(tools);
}

}  // namespace host
