// Classes that publish constants: the members whose value or behaviour is out of the ordinary.
#include "support/host.h"

namespace {

using namespace host;

/// A member by name, as a script reads it.
Variant member(IDispatch* object, const wchar_t* name) {
  Variant value;
  EXPECT_EQ(S_OK, get_property(object, name, value.receive())) << utf8(name);
  return value;
}

std::wstring text_member(const wchar_t* class_name, const wchar_t* name) {
  const Variant value = member(create_dispatch(class_name).get(), name);
  EXPECT_EQ(VT_BSTR, value.get().vt) << utf8(name);
  return value.get().vt == VT_BSTR ? std::wstring(velmosav::view(value.get().bstrVal)) : L"not a text";
}

long number_member(const wchar_t* class_name, const wchar_t* name) {
  return velmosav::to_long(member(create_dispatch(class_name).get(), name).get());
}

TEST(ModuleScroll, LargeurMini_IsNineteenAtCreation) {
  EXPECT_EQ(19, number_member(L"ModuleScroll", L"LargeurMini"));
}

TEST(ModuleScroll, LargeurMini_StaysWhenMargehorizChanges) {
  const auto object = create_dispatch(L"ModuleScroll");
  ASSERT_EQ(S_OK, put_property(object.get(), L"MARGEHORIZ", Variant(5L)));
  EXPECT_EQ(5, velmosav::to_long(member(object.get(), L"MARGEHORIZ").get()));
  EXPECT_EQ(19, velmosav::to_long(member(object.get(), L"LargeurMini").get()));
  EXPECT_EQ(2, number_member(L"ModuleScroll", L"MARGEHORIZ"));  // another instance
}

/// Flags of one field of the grid, from `first` on, each the double of the one before.
struct Flags {
  long first;
  std::vector<const wchar_t*> names;
};

TEST(ModuleScroll, Flags_ArePowersOfTwoEachTheDoubleOfTheOneBefore) {
  const Flags fields[] = {
      {2, {L"S_COMPLCHANGE", L"S_COMPLKEYDOWN", L"S_COMPLKEYPRESS", L"S_COMPLKEYUP", L"S_COMPLRECHERCHE"}},
      {1, {L"STYLEFORMATLIGNE",  L"CELLOSTFOCUS",
           L"CELGOTFOCUS",       L"MEMOIRE",
           L"LIGGOTFOCUS",       L"LIGLOSTFOCUS",
           L"RETOURENTETE",      L"ACCESS",
           L"AJOUTIMPOSSIBLE",   L"Tri",
           L"PARAMETRABLE",      L"COMPLEMENT",
           L"STYLEFORMATCOL",    L"COLNONDEPLACABLE",
           L"COMPLVALIDOBLIG",   L"CLICKEVTSURCOL",
           L"STYLEFORCERSORTIE", L"COLGAUCHEFIXE",
           L"COMPLEMENTFIXE",    L"COLONNAGEMODIFIE",
           L"POSITREEL",         L"COULEURCELLULE"}},
      {2,
       {L"TABSTOPTRUE", L"TABSTOPFALSE", L"Texte", L"RESSOURCES", L"NOTUPDATABLE", L"LIBELLEASSOCIE",
        L"COLNONSIZABLE", L"RESSPERSO"}},
      {1, {L"COLDANSSCROLL", L"COLDANSCOMPL"}},
  };
  const auto object = create_dispatch(L"ModuleScroll");
  for (const auto& [first, names] : fields) {
    long expected = first;
    for (const wchar_t* name : names) {
      EXPECT_EQ(expected, velmosav::to_long(member(object.get(), name).get())) << utf8(name);
      expected *= 2;
    }
  }
}

TEST(ModuleScroll, MovementCodes_AreNegativeAndEditCodesPositive) {
  const std::pair<const wchar_t*, long> codes[] = {
      {L"DEPDROITE", -1}, {L"DEPGAUCHE", -2},     {L"DEPHAUT", -3},     {L"DEPBAS", -4},
      {L"DEPPGHAUT", -5}, {L"DEPPGBAS", -6},      {L"DEPFIRSTLIG", -7}, {L"DEPLASTLIG", -8},
      {L"DEPINSERE", 1},  {L"DEPSUPPRIME", 2},    {L"DEPSAISIE", 5},    {L"DEPREL", 6},
      {L"DEPORIGINE", 7}, {L"DEPVALIDELIGNE", 8}, {L"DEPTRI", 9},
  };
  const auto object = create_dispatch(L"ModuleScroll");
  for (const auto& [name, expected] : codes) {
    EXPECT_EQ(expected, velmosav::to_long(member(object.get(), name).get())) << utf8(name);
  }
}

TEST(Planning, FirstAndLastMode_AreCopiesThatDoNotFollowTheModes) {
  const auto planning = create_dispatch(L"Planning");
  EXPECT_EQ(1, velmosav::to_long(member(planning.get(), L"PC_FirstModePl").get()));
  EXPECT_EQ(2, velmosav::to_long(member(planning.get(), L"PC_LastModePl").get()));
  ASSERT_EQ(S_OK, put_property(planning.get(), L"PC_ModeDocument", Variant(7L)));
  ASSERT_EQ(S_OK, put_property(planning.get(), L"PC_ModeRessource", Variant(8L)));
  EXPECT_EQ(1, velmosav::to_long(member(planning.get(), L"PC_FirstModePl").get()));
  EXPECT_EQ(2, velmosav::to_long(member(planning.get(), L"PC_LastModePl").get()));
}

TEST(Planning, LineTypes_UnavailabilityIsMinusOneAndTheOthersRunFromOneToThirteen) {
  EXPECT_EQ(-1, number_member(L"Planning", L"L_TypeIndispo"));
  const wchar_t* names[] = {L"L_TypeTech",  L"L_TypeTrTech", L"L_TypeMat",   L"L_TypeTrMat", L"L_TypeDde",
                            L"L_TypeTrDde", L"L_TypeBon",    L"L_TypeTrBon", L"L_TypeNote",  L"L_TypePause",
                            L"L_TypeCad",   L"L_TypeTchDde", L"L_TypeTchBon"};
  long expected = 0;
  for (const wchar_t* name : names) EXPECT_EQ(++expected, number_member(L"Planning", name)) << utf8(name);
}

TEST(Planning, DeviceCapabilities_HaveTheSystemsIndexes) {
  EXPECT_EQ(LOGPIXELSX, number_member(L"Planning", L"PC_LOGPIXELSX"));
  EXPECT_EQ(LOGPIXELSY, number_member(L"Planning", L"PC_LOGPIXELSY"));
  EXPECT_EQ(HORZRES, number_member(L"Planning", L"PC_HORTRES"));
  EXPECT_EQ(VERTRES, number_member(L"Planning", L"PC_VERTRES"));
}

TEST(SAVImpr, DynamicEditions_ProposalsUseTheContracts) {
  EXPECT_EQ(L"CONTRAT", text_member(L"SAVImpr", L"PC_EDDYN_CONTRAT"));
  EXPECT_EQ(L"CONTRAT", text_member(L"SAVImpr", L"PC_EDDYN_PROP"));
}

TEST(ApiImpr, LicenceKeys_AreEmpty) {
  for (const wchar_t* name :
       {L"L_KEY_EXPRESS", L"L_KEY_GIFLZW", L"L_KEY_TIFLZW", L"L_KEY_FPXEXTENSIONS", L"L_KEY_OCR"}) {
    EXPECT_EQ(L"", text_member(L"ApiImpr", name)) << utf8(name);
  }
}

TEST(ApiImpr, Patterns_AreNotTheSystemsConstantsOfTheSameNames) {
  EXPECT_EQ(5, number_member(L"ApiImpr", L"TRANSPARENT"));
  EXPECT_EQ(4, number_member(L"ApiImpr", L"HS_CROSS"));
  EXPECT_EQ(0, number_member(L"ApiImpr", L"HS_HORIZONTAL"));
}

TEST(Preference, ContractFrameInterventionKey_StaysEmpty) {
  EXPECT_EQ(L"", text_member(L"Preference", L"PC_PREF_CTT_APPCADREINT"));
}

TEST(ApiSkin, AssistantHeader_RepeatsTheSquareButton) {
  EXPECT_EQ(1250, number_member(L"ApiSkin", L"API_SKIN_CLASS_HEADER_ASSISTANT"));
  EXPECT_EQ(1250, number_member(L"ApiSkin", L"API_SKIN_CLASS_SQUARE_BUTTON"));
}

TEST(SAVApiListe, KeyCodes_ShareTheirValues) {
  const std::pair<const wchar_t*, long> cases[] = {
      {L"G_BTL_F2", 1},      {L"G_BTL_INS", 1},        {L"PC_COCH_ART", 11},
      {L"PC_COCH_PREV", 11}, {L"PC_COCH_MO", 15},      {L"PC_COCH_AUTRE", 15},
      {L"PC_COCH_PLAN", 10}, {L"PC_COCH_FILTCTT", 10}, {L"PC_COCH_FILTSITE", 10},
  };
  for (const auto& [name, expected] : cases)
    EXPECT_EQ(expected, number_member(L"SAVApiListe", name)) << utf8(name);
}

TEST(AchatVente, AccentedMembers_AreReachedByName) {
  EXPECT_EQ(L"R", text_member(L"AchatVente", L"PC_ModeDeCalculCa_HT_Remisé"));
  EXPECT_EQ(L"E", text_member(L"AchatVente", L"PC_ModeDeCalculCa_HT_RemiséEscompté"));
}

TEST(AchatVente, AccentedMembers_AreAssignedByName) {
  const auto object = create_dispatch(L"AchatVente");
  ASSERT_EQ(S_OK, put_property(object.get(), L"PC_ModeDeCalculCa_HT_Remisé", text_value(L"Z")));
  EXPECT_EQ(L"Z", velmosav::view(member(object.get(), L"PC_ModeDeCalculCa_HT_Remisé").get().bstrVal));
}

TEST(General, Colours_SystemColourIsANegativeLong) {
  const Variant colour = member(create_dispatch(L"General").get(), L"vbSystemColor");
  EXPECT_EQ(VT_I4, colour.get().vt);
  EXPECT_EQ(static_cast<long>(0x8000000F), colour.get().lVal);
}

TEST(General, OperationCodes_SkipSix) {
  const std::pair<const wchar_t*, long> cases[] = {
      {L"OpCreer", 0},         {L"OpModifier", 1},     {L"OpLire", 2},    {L"OpEcrire", 3},
      {L"OpCopier", 4},        {L"OpVerifier", 5},     {L"OpRaz", 7},     {L"OpInit", 8},
      {L"OpSuppr", 9},         {L"OpImpr", 10},        {L"OpScroll", 11}, {L"OpLireScroll", 12},
      {L"OpEcrireScroll", 13}, {L"OpEcrireLigne", 14},
  };
  for (const auto& [name, expected] : cases)
    EXPECT_EQ(expected, number_member(L"General", name)) << utf8(name);
}

TEST(General, ResourceKeys_TheTickIsANumberAmongTexts) {
  const Variant tick = member(create_dispatch(L"General").get(), L"PC_RES_BMP_COCHE");
  EXPECT_EQ(VT_I2, tick.get().vt);
  EXPECT_EQ(1005, tick.get().iVal);
}

TEST(ConstantHolders, AssignedMember_ChangesForItsInstanceOnly) {
  const auto first = create<_ApiGeneral>(L"ApiGeneral");
  const auto second = create<_ApiGeneral>(L"ApiGeneral");
  ASSERT_EQ(S_OK, first->put_FMT_DATE(Text(L"yyyy-mm-dd")));
  Text changed, unchanged;
  ASSERT_EQ(S_OK, first->get_FMT_DATE(&changed));
  ASSERT_EQ(S_OK, second->get_FMT_DATE(&unchanged));
  EXPECT_EQ(L"yyyy-mm-dd", changed.str());
  EXPECT_EQ(L"dd/mm/yy", unchanged.str());
  EXPECT_EQ(L"dd/mm/yy", text_member(L"ApiGeneral", L"FMT_DATE"));  // a later one
}

TEST(ConstantHolders, TextMember_IsTheCallersOwnCopyBothWays) {
  const auto object = create<_Article>(L"Article");
  Text given(L"abc");
  ASSERT_EQ(S_OK, object->put_PC_TARIF_HT(given));
  static_cast<BSTR>(given)[0] = L'Z';
  Text read;
  ASSERT_EQ(S_OK, object->get_PC_TARIF_HT(&read));
  EXPECT_EQ(L"abc", read.str());
  static_cast<BSTR>(read)[0] = L'Z';
  Text again;
  ASSERT_EQ(S_OK, object->get_PC_TARIF_HT(&again));
  EXPECT_EQ(L"abc", again.str());
}

TEST(ConstantHolders, TextMember_MayBecomeEmptyAndHoldItsValueAgain) {
  const auto object = create<_Article>(L"Article");
  ASSERT_EQ(S_OK, object->put_PC_TARIF_HT(nullptr));
  Text value(L"not set");
  ASSERT_EQ(S_OK, object->get_PC_TARIF_HT(&value));
  EXPECT_EQ(L"", value.str());
  ASSERT_EQ(S_OK, object->put_PC_TARIF_HT(Text(L"H")));
  ASSERT_EQ(S_OK, object->get_PC_TARIF_HT(&value));
  EXPECT_EQ(L"H", value.str());
}

TEST(ConstantHolders, ByteMember_RefusesWhatDoesNotFit) {
  const auto object = create_dispatch(L"General");
  EXPECT_EQ(DISP_E_OVERFLOW, put_property(object.get(), L"OpCreer", Variant(256L)));
  EXPECT_EQ(DISP_E_TYPEMISMATCH, put_property(object.get(), L"OpCreer", text_value(L"x")));
  EXPECT_EQ(0, velmosav::to_long(member(object.get(), L"OpCreer").get()));
}

}  // namespace
