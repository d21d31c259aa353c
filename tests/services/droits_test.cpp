// Droits.GetDroitByTypeDoc: the number of the right that governs a type of document.
#include "support/host.h"

namespace host {
namespace {

constexpr short kNone = -1;

class Droits : public ::testing::Test {
 protected:
  short right(BSTR type, VARIANT_BOOL change) {
    short result = 77;
    EXPECT_EQ(S_OK, rights_->GetDroitByTypeDoc(type, change, &result));
    return result;
  }

  ComPtr<_Droits> rights_ = create<_Droits>(L"Droits");
};

struct Right {
  const char* name;
  const wchar_t* type;
  short change;
  short remove;
};

class DroitsByType : public Droits, public ::testing::WithParamInterface<Right> {};

TEST_P(DroitsByType, GetDroitByTypeDoc_ToCreateOrChange) {
  EXPECT_EQ(GetParam().change, right(Text(GetParam().type), VARIANT_TRUE));
}

TEST_P(DroitsByType, GetDroitByTypeDoc_ToDelete) {
  EXPECT_EQ(GetParam().remove, right(Text(GetParam().type), VARIANT_FALSE));
}

TEST_P(DroitsByType, GetDroitByTypeDoc_LateBoundWithTheFlagLeftOut_IsToCreateOrChange) {
  Variant result;
  std::vector<Variant> type;
  type.push_back(text_value(GetParam().type));
  ASSERT_EQ(S_OK, call(rights_.get(), L"GetDroitByTypeDoc", std::move(type), result.receive()));
  EXPECT_EQ(VT_I2, result.get().vt);
  EXPECT_EQ(GetParam().change, result.get().iVal);
}

TEST_P(DroitsByType, GetDroitByTypeDoc_LateBoundWithTheFlagFalse_IsToDelete) {
  Variant result;
  std::vector<Variant> list;
  list.push_back(text_value(GetParam().type));
  list.push_back(bool_value(false));
  ASSERT_EQ(S_OK, call(rights_.get(), L"GetDroitByTypeDoc", std::move(list), result.receive()));
  EXPECT_EQ(VT_I2, result.get().vt);
  EXPECT_EQ(GetParam().remove, result.get().iVal);
}

INSTANTIATE_TEST_SUITE_P(
    Types, DroitsByType,
    ::testing::Values(Right{"ContractG", L"G", 470, 471}, Right{"ProposalY", L"Y", 460, 461},
                      Right{"InterventionP", L"P", 483, 484}, Right{"InvoiceF", L"F", kNone, kNone},
                      Right{"EmptyType", L"", kNone, kNone}, Right{"LowerCaseP", L"p", kNone, kNone},
                      Right{"LowerCaseG", L"g", kNone, kNone}, Right{"LowerCaseY", L"y", kNone, kNone},
                      Right{"BlankBefore", L" G", kNone, kNone}, Right{"BlankAfter", L"G ", kNone, kNone},
                      Right{"TwoLetters", L"GG", kNone, kNone}, Right{"TwoTypes", L"GY", kNone, kNone}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Droits, GetDroitByTypeDoc_EveryOtherCharacter_HasNoRight) {
  for (wchar_t letter = 1; letter < 256; ++letter) {
    if (letter == L'G' || letter == L'Y' || letter == L'P') continue;
    const Text type(std::wstring(1, letter));
    EXPECT_EQ(kNone, right(type, VARIANT_TRUE)) << static_cast<int>(letter);
    EXPECT_EQ(kNone, right(type, VARIANT_FALSE)) << static_cast<int>(letter);
  }
}

TEST_F(Droits, GetDroitByTypeDoc_NullText_IsAnEmptyOne) { EXPECT_EQ(kNone, right(nullptr, VARIANT_TRUE)); }

TEST_F(Droits, GetDroitByTypeDoc_TypeWithAZeroCharacter_IsAnotherType) {
  EXPECT_EQ(kNone, right(Text(std::wstring_view(L"G\0", 2)), VARIANT_TRUE));
}

TEST_F(Droits, GetDroitByTypeDoc_AFlagOtherThanMinusOne_IsTrue) {
  EXPECT_EQ(470, right(Text(L"G"), VARIANT_BOOL{1}));
}

TEST_F(Droits, GetDroitByTypeDoc_TypesOfTheHostsOwnGeneral_DoNotCount) {
  const auto general = create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sTypDoc_Ctt(Text(L"K")));
  const auto later = create<_Droits>(L"Droits");
  short result = 77;
  EXPECT_EQ(S_OK, later->GetDroitByTypeDoc(Text(L"G"), VARIANT_TRUE, &result));
  EXPECT_EQ(470, result);
  EXPECT_EQ(S_OK, later->GetDroitByTypeDoc(Text(L"K"), VARIANT_TRUE, &result));
  EXPECT_EQ(kNone, result);
}

TEST_F(Droits, GetDroitByTypeDoc_NullAddressOfTheResult_IsRefused) {
  EXPECT_EQ(E_POINTER, rights_->GetDroitByTypeDoc(Text(L"G"), VARIANT_TRUE, nullptr));
  EXPECT_EQ(L"VelmoSAV_DLL14.Droits", take_error().source);
}

}  // namespace
}  // namespace host
