// The enumerations: names and values in declared order, in the type library and in the C++ header.
#include <algorithm>
#include <map>

#include "contract/published.h"
#include "support/type_library.h"

namespace contract {
namespace {

class EachEnumeration : public ::testing::TestWithParam<Enumeration> {};

TEST_P(EachEnumeration, Values_StandInTheirOrder) {
  const auto info = type_named(TKIND_ENUM, GetParam().name);
  ASSERT_TRUE(info);
  ASSERT_EQ(GetParam().values.size(), attributes_of(info)->cVars);
  for (UINT i = 0; i < GetParam().values.size(); ++i) {
    const Enumerator& expected = GetParam().values[i];
    const auto variable = variable_of(info, i);
    ASSERT_EQ(VAR_CONST, variable->varkind) << utf8(expected.name);
    EXPECT_EQ(expected.name, name_of(info, variable->memid));
    EXPECT_EQ(VT_I4, variable->lpvarValue->vt) << utf8(expected.name);
    EXPECT_EQ(expected.value, variable->lpvarValue->lVal) << utf8(expected.name);
  }
}

TEST_P(EachEnumeration, Values_InTheHeader_AreTheSame) {
  for (const Enumerator& expected : GetParam().values) {
    EXPECT_EQ(expected.value, expected.header_value) << utf8(expected.name);
  }
}

TEST_P(EachEnumeration, Width_IsThirtyTwoBits) {
  const auto info = type_named(TKIND_ENUM, GetParam().name);
  ASSERT_TRUE(info);
  EXPECT_EQ(4u, attributes_of(info)->cbSizeInstance);
  EXPECT_EQ(4u, GetParam().header_size);
}

INSTANTIATE_TEST_SUITE_P(, EachEnumeration, ::testing::ValuesIn(enumerations()), name_of_case<Enumeration>);

using Members = std::vector<std::pair<std::wstring, long>>;

/// The members of an enumeration of the type library, in declared order.
Members members_of(const ComPtr<ITypeInfo>& info) {
  Members members;
  for (UINT i = 0; info && i < attributes_of(info)->cVars; ++i) {
    const auto variable = variable_of(info, i);
    members.emplace_back(name_of(info, variable->memid), variable->lpvarValue->lVal);
  }
  return members;
}

Members members_of(const wchar_t* enumeration) { return members_of(type_named(TKIND_ENUM, enumeration)); }

long value_in(const wchar_t* enumeration, std::wstring_view name) {
  for (const auto& [member, value] : members_of(enumeration)) {
    if (member == name) return value;
  }
  ADD_FAILURE() << utf8(enumeration) << " has no " << utf8(name);
  return 0;
}

/// What a compiler gets for "enumeration.name"; nothing where the enumeration has no such member.
std::optional<long> bound_value(const ComPtr<ITypeInfo>& enumeration, std::wstring name) {
  ComPtr<ITypeComp> compiler;
  EXPECT_EQ(S_OK, enumeration->GetTypeComp(compiler.receive()));
  ComPtr<ITypeInfo> owner;
  DESCKIND kind = DESCKIND_NONE;
  BINDPTR bound{};
  const ULONG hash = LHashValOfName(LOCALE_USER_DEFAULT, name.c_str());
  EXPECT_EQ(S_OK, compiler->Bind(name.data(), hash, INVOKE_PROPERTYGET, owner.receive(), &kind, &bound));
  if (kind == DESCKIND_NONE) return std::nullopt;
  EXPECT_EQ(DESCKIND_VARDESC, kind);
  const long value = bound.lpvardesc->lpvarValue->lVal;
  owner->ReleaseVarDesc(bound.lpvardesc);
  return value;
}

TEST(EnumerationMembers, OfOneNameInSeveralEnumerations_BelongToTheirOwnEach) {
  using Owners = std::map<std::wstring, long>;
  const std::pair<const wchar_t*, Owners> shared[] = {
      {L"Contrat",
       {{L"MenuSAV", 0},
        {L"SsMenuInit", 5},
        {L"SsMenuGen", 0},
        {L"SsMenuEdt", 0},
        {L"SsMenuReEdt", 0},
        {L"SsMenuStat", 0}}},
      {L"Interv",
       {{L"MenuSAV", 1},
        {L"SsMenuInit", 4},
        {L"SsMenuGen", 1},
        {L"SsMenuTrsf", 0},
        {L"SsMenuEdt", 1},
        {L"SsMenuReEdt", 2},
        {L"SsMenuStat", 1}}},
      {L"Sep1", {{L"MenuSAV", 2}, {L"SsMenuInit", 1}}},
  };
  for (const auto& [name, expected] : shared) {
    Owners listed;
    Owners bound;
    for (const auto& info : every_type()) {
      if (attributes_of(info)->typekind != TKIND_ENUM) continue;
      for (const auto& [member, value] : members_of(info)) {
        if (member == name) listed.emplace(name_of(info), value);
      }
      if (const auto value = bound_value(info, name)) bound.emplace(name_of(info), *value);
    }
    EXPECT_EQ(expected, listed) << utf8(name);
    EXPECT_EQ(expected, bound) << utf8(name);
  }
}

TEST(EnumerationMembers, IndTabGenerMax_IsThirteenAsItsLastColumn) {
  Members columns = members_of(L"IndTabGener");
  ASSERT_FALSE(columns.empty());
  EXPECT_EQ((Members::value_type{L"Max", 13}), columns.front());
  EXPECT_EQ((Members::value_type{L"ColFormatTVA", 13}), columns.back());
  columns.erase(columns.begin());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(static_cast<long>(i), columns[i].second) << utf8(columns[i].first);
  }
}

TEST(EnumerationMembers, TTStyle_HasTheBalloonFlagOfSixtyFourOverPlainStyles) {
  EXPECT_EQ(0, value_in(L"TTStyle", L"TTStandardIfActive"));
  EXPECT_EQ(1, value_in(L"TTStyle", L"TTStandardAlways"));
  EXPECT_EQ(64 | 0, value_in(L"TTStyle", L"TTBalloonIfActive"));
  EXPECT_EQ(64 | 1, value_in(L"TTStyle", L"TTBalloonAlways"));
  EXPECT_EQ(-1, value_in(L"TTStyle", L"TTNone"));
}

TEST(EnumerationMembers, DroitSAV_ThreeRightsStandOutOfTheOrderOfTheirValues) {
  Members rights = members_of(L"DroitSAV");
  const Members neighbours[] = {
      {{L"PC_DROIT_INTTYPLST", 459}, {L"PC_DROIT_CTTTYPLST", 463}, {L"PC_DROIT_PROP", 460}},
      {{L"PC_DROIT_CTTFAC", 478}, {L"PC_DROIT_CTTLST", 464}, {L"PC_DROIT_GENFACT", 479}},
      {{L"PC_DROIT_INTIMP", 485}, {L"PC_DROIT_INTLST", 499}, {L"PC_DROIT_INTTRSF", 486}},
  };
  for (const Members& three : neighbours) {
    const auto found = std::search(rights.begin(), rights.end(), three.begin(), three.end());
    ASSERT_TRUE(found != rights.end()) << utf8(three[1].first);
    rights.erase(found + 1);
  }
  for (std::size_t i = 1; i < rights.size(); ++i) {
    EXPECT_LT(rights[i - 1].second, rights[i].second) << utf8(rights[i].first);
  }
}

}  // namespace
}  // namespace contract
