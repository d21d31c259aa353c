// The methods of Periodicite called by name, with records and variables by reference.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

struct LateBound {
  ComPtr<IDispatch> object = create_dispatch(L"Periodicite");
  ComPtr<IRecordInfo> info = record_info<Type_Periodicite>();

  [[nodiscard]] std::wstring text(const wchar_t* name, std::vector<Variant> list) const {
    Variant result;
    EXPECT_EQ(S_OK, call(object.get(), name, std::move(list), result.receive())) << utf8(name);
    EXPECT_EQ(VT_BSTR, result.get().vt);
    return result.get().vt == VT_BSTR ? get(result.get().bstrVal) : std::wstring();
  }
};

constexpr wchar_t kWeekdays[] = L"&Lundi;&Mardi;M&ercredi;&Jeudi;&Vendredi;&Samedi;&Dimanche;#F";

TEST(Periodicite, GetListeFormat_LateBoundReplacementMayBeLeftOut) {
  EXPECT_EQ(L"Jeudi, Lundi",
            LateBound().text(L"GetListeFormat", arguments(text_value(L"JL"), text_value(kWeekdays))));
}

TEST(Periodicite, GetListeFormat_LateBoundWithoutReplacement) {
  EXPECT_EQ(L"&Jeudi, &Lundi",
            LateBound().text(L"GetListeFormat",
                             arguments(text_value(L"JL"), text_value(kWeekdays), bool_value(false))));
}

TEST(Periodicite, GetListeFormat_LateBoundScriptVariableStays) {
  Variant keys = text_value(L"jl");
  EXPECT_EQ(L"Jeudi, Lundi",
            LateBound().text(L"GetListeFormat", arguments(by_reference(keys.get()), text_value(kWeekdays))));
  EXPECT_EQ(L"jl", velmosav::view(keys.get().bstrVal));
}

TEST(Periodicite, CheckDate_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"30/06/2024", LateBound().text(L"CheckDate", arguments(text_value(L"31/06/2024"))));
}

TEST(Periodicite, LastDayOfMonth_LateBoundYearMayBeLeftOut) {
  const auto year = two_digits(local_today().wYear);
  EXPECT_EQ(L"31/12/" + year, LateBound().text(L"LastDayOfMonth", arguments(Variant(12L))));
}

TEST(Periodicite, LastDayOfMonth_LateBoundScriptVariableReceivesTheNumber) {
  Variant year = text_value(L"2024");
  EXPECT_EQ(L"29/02/24",
            LateBound().text(L"LastDayOfMonth", arguments(Variant(2L), by_reference(year.get()))));
  EXPECT_EQ(VT_R8, year.get().vt);
  EXPECT_EQ(2024.0, year.get().dblVal);
}

TEST(Periodicite, GetKeyDay_LateBoundAnswersTheSame) {
  EXPECT_EQ(L"E", LateBound().text(L"GetKeyDay", arguments(Variant(4L))));
}

TEST(Periodicite, GetKeyMonth_LateBoundTakesATypedVariable) {
  short month = 8;
  EXPECT_EQ(L"O", LateBound().text(L"GetKeyMonth", arguments(by_reference(month))));
}

TEST(Periodicite, GetNumMonth_LateBoundTakesATypedVariable) {
  Text key(L"c");
  EXPECT_EQ(L"10", LateBound().text(L"GetNumMonth", arguments(by_reference(key))));
  EXPECT_EQ(key, std::wstring_view(L"c"));
}

TEST(Periodicite, GetPrevNextMonth_LateBoundAnswersTheSame) {
  const LateBound host;
  auto record = rule({.kind = L"M", .months = L"C"});
  EXPECT_EQ(L"15/10/2024", host.text(L"GetPrevNextMonth",
                                     arguments(text_value(L"15/03/2025"),
                                               record_argument(*record, host.info.get()), bool_value(true))));
}

TEST(Periodicite, GetLibPeriodicite_LateBoundAnswersTheSame) {
  const LateBound host;
  auto record = rule({.kind = L"H", .every = 3, .weekdays = L"M"});
  EXPECT_EQ(L"Mardi, toutes les  3 semaines",
            host.text(L"GetLibPeriodicite", arguments(record_argument(*record, host.info.get()))));
}

TEST(Periodicite, GetDateOfDay_LateBoundAnswersTheSame) {
  const LateBound host;
  auto record = rule({.ordinal = L"R", .weekdays = L"V"});
  Variant year(2025L);
  EXPECT_EQ(L"30/05/2025", host.text(L"GetDateOfDay", arguments(record_argument(*record, host.info.get()),
                                                                Variant(5L), by_reference(year.get()))));
  EXPECT_EQ(VT_R8, year.get().vt);
}

TEST(Periodicite, GetDateOfDay_LateBoundMonthAndYearMayBeLeftOut) {
  const LateBound host;
  auto record = rule({.ordinal = L"D", .weekdays = L"L"});
  const SYSTEMTIME now = local_today();
  const std::wstring date = host.text(L"GetDateOfDay", arguments(record_argument(*record, host.info.get())));
  ASSERT_EQ(10U, date.size());
  EXPECT_EQ(L"/" + two_digits(now.wMonth) + L"/" + std::to_wstring(now.wYear), date.substr(2));
}

TEST(Periodicite, GetDateOfDay_LateBoundFaultCarriesTheNumberAndTheSource) {
  const LateBound host;
  auto record = rule({.ordinal = L"P", .weekdays = L"LM"});
  Variant result;
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION,
            call(host.object.get(), L"GetDateOfDay",
                 arguments(record_argument(*record, host.info.get()), Variant(5L), Variant(2025L)),
                 result.receive(), &exception));
  const Bstr source = Bstr::attach(exception.bstrSource);
  const Bstr description = Bstr::attach(exception.bstrDescription);
  EXPECT_EQ(static_cast<SCODE>(0x800A0005), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.Periodicite", source.view());
  EXPECT_EQ(L"Appel ou argument de procédure incorrect", description.view());
}

}  // namespace
