// General: document types, provenances and table names translated into one another.
#include "support/arguments.h"

namespace {

using namespace host;

using Method = HRESULT (STDMETHODCALLTYPE _General::*)(BSTR, BSTR*);

struct Translation {
  const wchar_t* input;
  const wchar_t* expected;
};

std::wstring translated(_General* general, Method method, const wchar_t* input) {
  Text result(L"not set");
  EXPECT_EQ(S_OK, (general->*method)(Text(input), &result));
  return result.str();
}

void expect_translations(Method method, std::initializer_list<Translation> cases) {
  const auto general = create<_General>(L"General");
  for (const Translation& test : cases) {
    EXPECT_EQ(Text(test.expected), translated(general.get(), method, test.input)) << utf8(test.input);
  }
}

TEST(General, GetNomTableByTypeDoc_GivesTheStemOfEachStoredType) {
  expect_translations(&_General::GetNomTableByTypeDoc,
                      {{L"Y", L"PropCtt"}, {L"G", L"Contrat"}, {L"P", L"Interv"}});
}

TEST(General, GetNomTableByTypeDoc_InvoiceAndEmptyTypeHaveNone) {
  expect_translations(&_General::GetNomTableByTypeDoc, {{L"F", L""}, {L"", L""}});
}

TEST(General, GetNomTableByTypeDoc_UnknownTypesHaveNone) {
  expect_translations(&_General::GetNomTableByTypeDoc,
                      {{L"X", L""}, {L"GG", L""}, {L"G ", L""}, {L"Contrat", L""}});
}

TEST(General, GetNomTableByTypeDoc_LowerCaseIsNoType) {
  expect_translations(&_General::GetNomTableByTypeDoc, {{L"g", L""}, {L"y", L""}, {L"p", L""}});
}

TEST(General, GetNomTableByTypeDoc_ProposalIsTheFirstMatch) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Ctt(Text(L"Y")));
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Interv(Text(L"Y")));
  EXPECT_EQ(L"PropCtt", translated(general.get(), &_General::GetNomTableByTypeDoc, L"Y"));
  EXPECT_EQ(L"", translated(general.get(), &_General::GetNomTableByTypeDoc, L"G"));
}

TEST(General, GetNomTableByTypeDoc_ContractComesBeforeIntervention) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Interv(Text(L"G")));
  EXPECT_EQ(L"Contrat", translated(general.get(), &_General::GetNomTableByTypeDoc, L"G"));
}

TEST(General, GetNomTableByTypeDoc_FollowsTheMembersOfTheInstance) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Interv(Text(L"Z")));
  EXPECT_EQ(L"Interv", translated(general.get(), &_General::GetNomTableByTypeDoc, L"Z"));
  EXPECT_EQ(L"", translated(general.get(), &_General::GetNomTableByTypeDoc, L"P"));
  expect_translations(&_General::GetNomTableByTypeDoc, {{L"Z", L""}, {L"P", L"Interv"}});  // another instance
}

TEST(General, GetTypeDocByProv_GivesTheTypeOfEachProvenance) {
  expect_translations(
      &_General::GetTypeDocByProv,
      {{L"Proposition de contrat", L"Y"}, {L"Contrat", L"G"}, {L"Intervention", L"P"}, {L"Facture", L"F"}});
}

TEST(General, GetTypeDocByProv_DirectInterventionHasNoType) {
  expect_translations(&_General::GetTypeDocByProv, {{L"Intervention directe", L""}});
}

TEST(General, GetTypeDocByProv_ComparisonIsExact) {
  expect_translations(&_General::GetTypeDocByProv,
                      {{L"contrat", L""}, {L"CONTRAT", L""}, {L" Contrat", L""}, {L"G", L""}, {L"", L""}});
}

TEST(General, GetTypeDocByProv_FollowsTheMembersOfTheInstance) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Fact(Text(L"Avoir")));
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Fact(Text(L"V")));
  EXPECT_EQ(L"V", translated(general.get(), &_General::GetTypeDocByProv, L"Avoir"));
  EXPECT_EQ(L"", translated(general.get(), &_General::GetTypeDocByProv, L"Facture"));
}

TEST(General, GetTypeDocByProv_FirstMatchWinsInOrderProposalContractInterventionInvoice) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Prop(Text(L"X")));
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Ctt(Text(L"X")));
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Interv(Text(L"X")));
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Fact(Text(L"X")));
  EXPECT_EQ(L"Y", translated(general.get(), &_General::GetTypeDocByProv, L"X"));
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Prop(Text(L"-")));
  EXPECT_EQ(L"G", translated(general.get(), &_General::GetTypeDocByProv, L"X"));
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Ctt(Text(L"-")));
  EXPECT_EQ(L"P", translated(general.get(), &_General::GetTypeDocByProv, L"X"));
}

TEST(General, GetProvByTypeDocSAV_GivesTheProvenanceOfAfterSalesTypes) {
  expect_translations(&_General::GetProvByTypeDocSAV, {{L"G", L"Contrat"}, {L"P", L"Intervention"}});
}

TEST(General, GetProvByTypeDocSAV_InvoiceGivesFacture) {
  expect_translations(&_General::GetProvByTypeDocSAV, {{L"F", L"Facture"}});
}

TEST(General, GetProvByTypeDocSAV_ProposalHasNone) {
  expect_translations(&_General::GetProvByTypeDocSAV, {{L"Y", L""}});
}

TEST(General, GetProvByTypeDocSAV_ComparisonIsExact) {
  expect_translations(&_General::GetProvByTypeDocSAV,
                      {{L"g", L""}, {L"p", L""}, {L"f", L""}, {L"", L""}, {L"GP", L""}});
}

TEST(General, GetProvByTypeDocSAV_InvoiceGivesTheLiteralWhateverTheMember) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Fact(Text(L"Avoir")));
  EXPECT_EQ(L"Facture", translated(general.get(), &_General::GetProvByTypeDocSAV, L"F"));
}

TEST(General, GetProvByTypeDocSAV_FollowsTheOtherMembersOfTheInstance) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Ctt(Text(L"K")));
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Ctt(Text(L"Abonnement")));
  EXPECT_EQ(L"Abonnement", translated(general.get(), &_General::GetProvByTypeDocSAV, L"K"));
  EXPECT_EQ(L"", translated(general.get(), &_General::GetProvByTypeDocSAV, L"G"));
}

TEST(General, GetProvByTypeDocSAV_ContractComesBeforeInterventionBeforeInvoice) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Interv(Text(L"F")));
  EXPECT_EQ(L"Intervention", translated(general.get(), &_General::GetProvByTypeDocSAV, L"F"));
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Ctt(Text(L"F")));
  EXPECT_EQ(L"Contrat", translated(general.get(), &_General::GetProvByTypeDocSAV, L"F"));
}

TEST(General, Translations_NullTextIsAnEmptyOne) {
  const auto general = create<_General>(L"General");
  for (const Method method :
       {&_General::GetNomTableByTypeDoc, &_General::GetTypeDocByProv, &_General::GetProvByTypeDocSAV}) {
    Text result(L"not set");
    EXPECT_EQ(S_OK, (general.get()->*method)(nullptr, &result));
    EXPECT_EQ(L"", result.str());
  }
}

TEST(General, Translations_NullResultIsEPointer) {
  const auto general = create<_General>(L"General");
  for (const Method method :
       {&_General::GetNomTableByTypeDoc, &_General::GetTypeDocByProv, &_General::GetProvByTypeDocSAV}) {
    EXPECT_EQ(E_POINTER, (general.get()->*method)(Text(L"G"), nullptr));
  }
}

TEST(General, Translations_LateBoundCallsAnswerTheSame) {
  const std::pair<const wchar_t*, Translation> cases[] = {
      {L"GetNomTableByTypeDoc", {L"Y", L"PropCtt"}},
      {L"GetTypeDocByProv", {L"Facture", L"F"}},
      {L"GetProvByTypeDocSAV", {L"P", L"Intervention"}},
  };
  for (const auto& [name, test] : cases) {
    Variant result;
    EXPECT_EQ(S_OK, call(create_dispatch(L"General").get(), name, arguments(text_value(test.input)),
                         result.receive()));
    ASSERT_EQ(VT_BSTR, result.get().vt);
    EXPECT_EQ(test.expected, velmosav::view(result.get().bstrVal));
  }
}

}  // namespace
