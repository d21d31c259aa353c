// IDispatch::GetIDsOfNames: members and parameters by name, ignoring case.
#include "frame/library.h"
#include "frame/members.h"

namespace {

using host::catalogue;
using host::CatalogueEntry;
using host::ComPtr;
using host::Member;
using host::utf8;

struct Found {
  HRESULT code;
  DISPID id;
};

Found find(IDispatch* object, std::wstring name) {
  wchar_t* names[] = {name.data()};
  Found found{S_OK, 12345};
  found.code = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &found.id);
  return found;
}

std::wstring upper(std::wstring text) {
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::wstring lower(std::wstring text) {
  CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

class NamesOfEachClass : public ::testing::TestWithParam<CatalogueEntry> {
 protected:
  void SetUp() override {
    object_ = host::create_dispatch(GetParam().name);
    ASSERT_TRUE(object_);
    members_ = host::members_of(GetParam().iid);
    ASSERT_EQ(GetParam().empty, members_.empty());
  }

  void expect_all_found(std::wstring (*spelling)(std::wstring)) {
    for (const Member& member : members_) {
      const Found found = find(object_.get(), spelling(member.name));
      EXPECT_EQ(S_OK, found.code) << utf8(member.name);
      EXPECT_EQ(member.id, found.id) << utf8(member.name);
    }
  }

  ComPtr<IDispatch> object_;
  std::vector<Member> members_;
};

TEST_P(NamesOfEachClass, EveryMember_AsPublished_IsFound) {
  expect_all_found([](std::wstring name) { return name; });
}

TEST_P(NamesOfEachClass, EveryMember_InUpperCase_IsFound) { expect_all_found(upper); }

TEST_P(NamesOfEachClass, EveryMember_InLowerCase_IsFound) { expect_all_found(lower); }

TEST_P(NamesOfEachClass, EveryParameter_IsFoundInItsPlace) {
  for (Member& member : members_) {
    if (member.kind != INVOKE_FUNC) continue;
    for (std::size_t i = 0; i < member.parameters.size(); ++i) {
      std::wstring parameter = upper(member.parameters[i].name);
      wchar_t* names[] = {member.name.data(), parameter.data()};
      DISPID ids[2] = {};
      EXPECT_EQ(S_OK, object_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids));
      EXPECT_EQ(static_cast<DISPID>(i), ids[1]) << utf8(member.name) << ' ' << utf8(parameter);
    }
  }
}

TEST_P(NamesOfEachClass, UnknownMember_IsRefused) {
  const Found found = find(object_.get(), L"N'existe_pas");
  EXPECT_EQ(DISP_E_UNKNOWNNAME, found.code);
  EXPECT_EQ(DISPID_UNKNOWN, found.id);
}

TEST_P(NamesOfEachClass, EmptyName_IsRefused) {
  EXPECT_EQ(DISP_E_UNKNOWNNAME, find(object_.get(), L"").code);
}

TEST_P(NamesOfEachClass, MemberWithOneLetterMore_IsRefused) {
  for (const Member& member : members_) {
    EXPECT_EQ(DISP_E_UNKNOWNNAME, find(object_.get(), member.name + L"é").code) << utf8(member.name);
  }
}

INSTANTIATE_TEST_SUITE_P(, NamesOfEachClass, ::testing::ValuesIn(catalogue()), host::class_name_of);

class Names : public ::testing::Test {
 protected:
  ComPtr<IDispatch> achat_vente_ = host::create_dispatch(L"AchatVente");
  ComPtr<IDispatch> outil_ = host::create_dispatch(L"Outil");
};

TEST_F(Names, AccentedMember_AsPublished_IsFound) {
  EXPECT_EQ(S_OK, find(achat_vente_.get(), L"PC_ModeDeCalculCa_HT_Remisé").code);
  EXPECT_EQ(S_OK, find(achat_vente_.get(), L"PC_ModeDeCalculCa_HT_RemiséEscompté").code);
}

TEST_F(Names, AccentedMember_InUpperCase_IsTheSame) {
  EXPECT_EQ(find(achat_vente_.get(), L"PC_ModeDeCalculCa_HT_Remisé").id,
            find(achat_vente_.get(), L"PC_MODEDECALCULCA_HT_REMISÉ").id);
}

TEST_F(Names, AccentedMember_WithoutItsAccent_IsRefused) {
  EXPECT_EQ(DISP_E_UNKNOWNNAME, find(achat_vente_.get(), L"PC_ModeDeCalculCa_HT_Remise").code);
}

TEST_F(Names, MemberOfAnotherClass_IsRefused) {
  EXPECT_EQ(DISP_E_UNKNOWNNAME, find(outil_.get(), L"NbrCadFact").code);
}

TEST_F(Names, UnknownParameter_IsRefusedAndTheMemberStillFound) {
  wchar_t member[] = L"DLL_GetAmountTTCByHT", parameter[] = L"Inconnu";
  wchar_t* names[] = {member, parameter};
  DISPID ids[2] = {};
  EXPECT_EQ(DISP_E_UNKNOWNNAME, outil_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids));
  EXPECT_EQ(3, ids[0]);
  EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
}

TEST_F(Names, ParametersInAnyOrder_AreEachFound) {
  wchar_t member[] = L"dll_getamountttcbyht", first[] = L"NumDigitDec", second[] = L"vatrate";
  wchar_t* names[] = {member, first, second};
  DISPID ids[3] = {};
  EXPECT_EQ(S_OK, outil_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids));
  EXPECT_EQ(2, ids[1]);
  EXPECT_EQ(0, ids[2]);
}

TEST_F(Names, NoNames_IsRefused) {
  DISPID id = 0;
  EXPECT_EQ(E_POINTER, outil_->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id));
}

TEST_F(Names, NoPlaceForTheIdentifiers_IsRefused) {
  wchar_t member[] = L"ObjFromPtr";
  wchar_t* names[] = {member};
  EXPECT_EQ(E_POINTER, outil_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, nullptr));
}

}  // namespace
