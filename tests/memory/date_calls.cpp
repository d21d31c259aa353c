// Calls of Periodicite: recurrence rules, calendar helpers, the binary field.
#include <cstdio>

#include "dates/recurrence_fixture.h"
#include "dates/sample_file.h"
#include "memory/catalogue.h"

namespace host {
namespace {

using Dates = CallsOf<_Periodicite>;

void add_name_calls(Dates& dates) {
  dates
      .succeeds("GetListeFormat",
                [](Scene& scene, _Periodicite& object) {
                  Text keys(L"smd");
                  const auto watch = scene.watch(keys);
                  Text result;
                  return object.GetListeFormat(
                      keys.in_out(), Text(L"&Dimanche;&Lundi;&Mardi;M&ercredi;&Jeudi;&Vendredi;&Samedi;#F"),
                      nullptr, &result);
                })
      .fails("GetListeFormat", E_POINTER,
             [](Scene&, _Periodicite& object) {
               Text result;
               return object.GetListeFormat(nullptr, Text(L"&Lundi;"), nullptr, &result);
             })
      .succeeds("CheckDate",
                [](Scene&, IDispatch& object) {
                  return call_by_name(object, L"CheckDate", arguments(text_value(L"30/02/2024")));
                })
      .fails("CheckDate", Fault::Overflow,
             [](Scene&, IDispatch& object) {
               return call_by_name(object, L"CheckDate", arguments(text_value(L"1e999/02/2024")));
             })
      .succeeds("GetNumMonth",
                [](Scene& scene, _Periodicite& object) {
                  Text key(L"d");
                  const auto watch = scene.watch(key);
                  Text result;
                  return object.GetNumMonth(key.in_out(), &result);
                })
      .fails("GetNumMonth", E_POINTER,
             [](Scene&, _Periodicite& object) {
               Text result;
               return object.GetNumMonth(nullptr, &result);
             })
      .succeeds("GetFormatUniteDuree",
                [](Scene& scene, _Periodicite& object) {
                  Text unit(L"w");
                  const auto watch = scene.watch(unit);
                  Text result;
                  return object.GetFormatUniteDuree(unit.in_out(), &result);
                })
      .fails("GetFormatUniteDuree", E_POINTER,
             [](Scene&, _Periodicite& object) {
               Text result;
               return object.GetFormatUniteDuree(nullptr, &result);
             })
      .succeeds("GetKeyDay",
                [](Scene& scene, _Periodicite& object) {
                  short day = 2;
                  const auto watch = scene.watch(day);
                  Text result;
                  return object.GetKeyDay(&day, &result);
                })
      .fails("GetKeyDay", E_POINTER,
             [](Scene&, _Periodicite& object) {
               Text result;
               return object.GetKeyDay(nullptr, &result);
             })
      .succeeds("GetKeyMonth",
                [](Scene& scene, _Periodicite& object) {
                  short month = 8;
                  const auto watch = scene.watch(month);
                  Text result;
                  return object.GetKeyMonth(&month, &result);
                })
      .fails("GetKeyMonth", E_POINTER, [](Scene&, _Periodicite& object) {
        Text result;
        return object.GetKeyMonth(nullptr, &result);
      });
}

void add_rule_calls(Dates& dates) {
  dates
      .succeeds("LastDayOfMonth",
                [](Scene& scene, _Periodicite& object) {
                  short month = 2;
                  Variant year = text_value(L"2024");
                  const auto watch = scene.watch(month, year);
                  Text result;
                  return object.LastDayOfMonth(&month, &year.get(), &result);
                })
      .changing_step_by_step()
      .fails("LastDayOfMonth", Fault::TypeMismatch,
             [](Scene& scene, _Periodicite& object) {
               short month = 77;
               const auto watch = scene.watch(month);
               Text result;
               return object.LastDayOfMonth(&month, nullptr, &result);
             })
      .succeeds("GetPrevNextMonth",
                [](Scene& scene, _Periodicite& object) {
                  auto monthly = rule({.kind = L"M", .day = 31, .months = L"FAS"});
                  Text date(L"31/01/2025");
                  const auto watch = scene.watch(monthly, date);
                  VARIANT_BOOL previous = VARIANT_FALSE;
                  Text result;
                  return object.GetPrevNextMonth(date.in_out(), monthly, &previous, &result);
                })
      .fails("GetPrevNextMonth", Fault::TypeMismatch,
             [](Scene& scene, _Periodicite& object) {
               auto monthly = rule({.kind = L"M", .every = 2});
               Text date(L"fin du mois");
               const auto watch = scene.watch(monthly, date);
               VARIANT_BOOL previous = VARIANT_TRUE;
               Text result;
               return object.GetPrevNextMonth(date.in_out(), monthly, &previous, &result);
             })
      .succeeds("GetLibPeriodicite",
                [](Scene& scene, IDispatch& object) {
                  auto yearly =
                      rule({.kind = L"A", .every = 2, .ordinal = L"R", .weekdays = L"LMJ", .months = L"JFD"});
                  const auto watch = scene.watch(yearly);
                  const auto info = record_info<Type_Periodicite>();
                  return call_by_name(object, L"GetLibPeriodicite",
                                      arguments(record_argument(*yearly, info.get())));
                })
      .fails("GetLibPeriodicite", E_POINTER,
             [](Scene&, _Periodicite& object) {
               Text result;
               return object.GetLibPeriodicite(nullptr, &result);
             })
      .succeeds("GetDateOfDay",
                [](Scene& scene, _Periodicite& object) {
                  auto third = rule({.kind = L"M", .ordinal = L"T", .weekdays = L"M"});
                  Variant month = text_value(L"5"), year(short{2025});
                  const auto watch = scene.watch(third, month, year);
                  Text result;
                  return object.GetDateOfDay(third, &month.get(), &year.get(), &result);
                })
      .succeeds("GetDateOfDay",
                [](Scene& scene, _Periodicite& object) {
                  auto last = rule({.kind = L"M", .ordinal = L"R", .weekdays = L"V"});
                  Variant month(short{2}), year = missing();
                  const auto watch = scene.watch(last, month, year);
                  Text result;
                  return object.GetDateOfDay(last, &month.get(), &year.get(), &result);
                })
      .changing_step_by_step()
      .fails("GetDateOfDay", Fault::InvalidArgument, [](Scene& scene, _Periodicite& object) {
        auto nameless = rule({.kind = L"M", .ordinal = L"P", .weekdays = L"?"});
        Variant month(short{2}), year(short{2025});
        const auto watch = scene.watch(nameless, month, year);
        Text result;
        return object.GetDateOfDay(nameless, &month.get(), &year.get(), &result);
      });
}

void add_file_calls(Dates& dates) {
  dates
      .succeeds("RenseignerChampBinaire",
                [file = std::shared_ptr<SampleFile>()](Scene& scene, _Periodicite& object) mutable {
                  if (!file) file = std::make_shared<SampleFile>(60000U);  // two chunks
                  const auto field = FakeObject::make();
                  field->on_get(L"AppendChunk", [](auto&) { return Variant(); });
                  IDispatch* argument = field.get();
                  Text path(file->path);
                  const auto watch = scene.watch(path);
                  VARIANT_BOOL result = 0;
                  return object.RenseignerChampBinaire(&argument, path.in_out(), &result);
                })
      .fails("RenseignerChampBinaire", Fault::FileNotFound, [](Scene& scene, _Periodicite& object) {
        const auto field = FakeObject::make();
        IDispatch* argument = field.get();
        Text path(L"C:\\windows\\aucun fichier de ce nom.bin");
        const auto watch = scene.watch(path);
        VARIANT_BOOL result = 0;
        return object.RenseignerChampBinaire(&argument, path.in_out(), &result);
      });
}

}  // namespace

void add_date_calls(Calls& calls) {
  Dates dates(calls, L"Periodicite");
  add_name_calls(dates);
  add_rule_calls(dates);
  add_file_calls(dates);
}

}  // namespace host
