// The public variables of Periodicite.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

std::wstring text_property(const wchar_t* name) {
  Variant value;
  EXPECT_EQ(S_OK, get_property(create_dispatch(L"Periodicite").get(), name, value.receive()));
  EXPECT_EQ(VT_BSTR, value.get().vt);
  return value.get().vt == VT_BSTR ? get(value.get().bstrVal) : std::wstring();
}

TEST(Periodicite, PublicVariables_KindLettersAtCreation) {
  EXPECT_EQ(L"Q", text_property(L"c_sPeriod_Quotid"));
  EXPECT_EQ(L"H", text_property(L"c_sPeriod_Hebdo"));
  EXPECT_EQ(L"M", text_property(L"c_sPeriod_Mens"));
  EXPECT_EQ(L"A", text_property(L"c_sPeriod_Annuel"));
}

TEST(Periodicite, PublicVariables_ListTextsAtCreation) {
  EXPECT_EQ(L"&Quotidienne;&Hebdomadaire;&Mensuelle;&Annuelle;#F", text_property(L"G_FmtTypePeriodicite"));
  EXPECT_EQ(L"&Lundi;&Mardi;M&ercredi;&Jeudi;&Vendredi;&Samedi;&Dimanche;#F",
            text_property(L"c_sWeekDayfmt"));
}

TEST(Periodicite, PublicVariables_VersionIsAByte) {
  Variant value;
  ASSERT_EQ(S_OK,
            get_property(create_dispatch(L"Periodicite").get(), L"PC_Period_Version1", value.receive()));
  EXPECT_EQ(VT_UI1, value.get().vt);
  EXPECT_EQ(1, value.get().bVal);
}

}  // namespace
