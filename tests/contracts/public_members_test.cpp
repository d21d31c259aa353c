// The public members of ContratDoc: values at creation, and assignment to one instance.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

struct TextMember {
  HRESULT (STDMETHODCALLTYPE _ContratDoc::*get)(BSTR*);
  HRESULT (STDMETHODCALLTYPE _ContratDoc::*put)(BSTR);
  const wchar_t* name;
  const wchar_t* value;
};
struct IntegerMember {
  HRESULT (STDMETHODCALLTYPE _ContratDoc::*get)(short*);
  HRESULT (STDMETHODCALLTYPE _ContratDoc::*put)(short);
  const wchar_t* name;
  short value;
};
struct ByteMember {
  HRESULT (STDMETHODCALLTYPE _ContratDoc::*get)(BYTE*);
  HRESULT (STDMETHODCALLTYPE _ContratDoc::*put)(BYTE);
  const wchar_t* name;
  BYTE value;
};

#define MEMBER(name, value) \
  { &_ContratDoc::get_##name, &_ContratDoc::put_##name, L## #name, value }
const TextMember kTexts[] = {
    MEMBER(PC_FmtCouvInt, L"{COUVINT}"),
    MEMBER(PC_FmtModeRec, L"{MODREC}"),
    MEMBER(PC_FmtTypCtt, L"{TYPCTT}"),
    MEMBER(PC_FmtEtatCtt, L"{ETATCTT}"),
    MEMBER(PC_FmtCondCtt, L"{CONDCTT}"),
    MEMBER(PC_FmtTermeDebFin, L"{TERMEDEBFIN}"),
    MEMBER(PC_FmtTermeCtt, L"{TERMECTT}"),
    MEMBER(PC_FmtSituatC, L"{SITUATC}"),
    MEMBER(PC_FmtSituat, L"{SITUAT}"),
    MEMBER(PC_IDModifEtatCtt, L"ETAT_CTT_"),
    MEMBER(PC_RacineTmpEtatCtt, L"EtatCtt"),
    MEMBER(PC_IDMAJCoordFacCtt, L"COORDFAC_CTT_"),
    MEMBER(PC_IDMAJCoordIntCtt, L"COORDINT_CTT_"),
    MEMBER(PC_RacineTmpMAJCoordCtt, L"MAJCoordCtt"),
    MEMBER(PC_FldNameMAJCoordFacCtt, L"CoordFac"),
    MEMBER(PC_FldNameMAJCoordIntCtt, L"CoordInt"),
    MEMBER(PC_IDModifTVACtt, L"TVA_CTT_"),
    MEMBER(PC_RacineTmpTVACtt, L"TVACtt"),
    MEMBER(PC_EchFact_LibDef, L"échéance de facturation"),
    MEMBER(PC_EchFact_PrefEnumUn, L"ère"),
    MEMBER(PC_EchFact_PrefEnum, L"ème"),
};
const IntegerMember kIntegers[] = {
    MEMBER(PC_CadInterv_Manu, -1),
    MEMBER(PC_NbMaxLigInt, 4000),
    MEMBER(PC_NbMaxLigFact, 2000),
    MEMBER(PC_NbMaxLigEch, 4000),
};
const ByteMember kBytes[] = {
    MEMBER(PC_ReedtCour_ModeAvFinCtt, 1),
    MEMBER(PC_ReedtCour_ModeAvFinGar, 2),
    MEMBER(PC_ReedtCour_ModeAvInterv, 3),
    MEMBER(PC_ReedtCour_LastMode, 3),
};
#undef MEMBER

std::wstring read(const Contracts& contracts, const TextMember& member) {
  Text value(L"not set");
  EXPECT_EQ(S_OK, (contracts.operator->()->*member.get)(&value));
  return value.str();
}
template <class Member>
int read(const Contracts& contracts, const Member& member) {
  auto value = static_cast<decltype(Member::value)>(99);
  EXPECT_EQ(S_OK, (contracts.operator->()->*member.get)(&value));
  return value;
}

TEST(ContratDoc, PublicMembers_HaveTheirValuesAtCreation) {
  const Contracts contracts;
  for (const auto& member : kTexts) EXPECT_EQ(member.value, read(contracts, member)) << utf8(member.name);
  for (const auto& member : kIntegers) EXPECT_EQ(member.value, read(contracts, member)) << utf8(member.name);
  for (const auto& member : kBytes) EXPECT_EQ(member.value, read(contracts, member)) << utf8(member.name);
}

TEST(ContratDoc, PublicMembers_AssignedInOneInstanceStayInAnother) {
  const Contracts changed;
  const Contracts other;
  for (const auto& member : kTexts) {
    ASSERT_EQ(S_OK, (changed.operator->()->*member.put)(Text(member.name)));
  }
  for (const auto& member : kIntegers) ASSERT_EQ(S_OK, (changed.operator->()->*member.put)(17));
  for (const auto& member : kBytes) ASSERT_EQ(S_OK, (changed.operator->()->*member.put)(18));
  for (const auto& member : kTexts) {
    EXPECT_EQ(member.name, read(changed, member));
    EXPECT_EQ(member.value, read(other, member)) << utf8(member.name);
  }
  for (const auto& member : kIntegers) {
    EXPECT_EQ(17, read(changed, member)) << utf8(member.name);
    EXPECT_EQ(member.value, read(other, member)) << utf8(member.name);
  }
  for (const auto& member : kBytes) {
    EXPECT_EQ(18, read(changed, member)) << utf8(member.name);
    EXPECT_EQ(member.value, read(other, member)) << utf8(member.name);
  }
}

}  // namespace
