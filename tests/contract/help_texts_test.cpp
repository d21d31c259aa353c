// The French help texts that an object browser shows.
#include <set>

#include "contract/published.h"
#include "support/type_library.h"

namespace contract {
namespace {

std::wstring help_of(const ComPtr<ITypeInfo>& info, MEMBERID member = MEMBERID_NIL) {
  Bstr help;
  EXPECT_EQ(S_OK, info->GetDocumentation(member, nullptr, help.receive(), nullptr, nullptr));
  return std::wstring(help.view());
}

std::wstring library_help() {
  Bstr help;
  EXPECT_EQ(S_OK, type_library()->GetDocumentation(-1, nullptr, help.receive(), nullptr, nullptr));
  return std::wstring(help.view());
}

/// Letters and signs of a French text. A text read in the wrong code page shows others.
bool is_french(wchar_t letter) {
  static const std::wstring accented = L"àâçèéêëîïôùûüœÀÂÇÈÉÊËÎÏÔÙÛÜŒ°«»’…\u00A0";
  return (letter >= L' ' && letter <= L'~') || accented.find(letter) != std::wstring::npos;
}

::testing::AssertionResult is_french_help(const std::wstring& help) {
  if (help.empty()) return ::testing::AssertionFailure() << "no help text";
  for (const wchar_t letter : help) {
    if (!is_french(letter)) {
      return ::testing::AssertionFailure()
             << "U+" << std::hex << static_cast<unsigned>(letter) << " in \"" << utf8(help) << '"';
    }
  }
  return ::testing::AssertionSuccess();
}

class HelpTexts : public ::testing::TestWithParam<Class> {};

TEST_P(HelpTexts, ClassAndInterface_HaveOne) {
  const auto entry = type_named(TKIND_COCLASS, GetParam().name);
  const auto face = dispatch_face(GetParam().name);
  ASSERT_TRUE(entry && face);
  EXPECT_TRUE(is_french_help(help_of(entry)));
  EXPECT_TRUE(is_french_help(help_of(face)));
}

TEST_P(HelpTexts, EveryMember_HasOne) {
  for (const auto& face : {dispatch_face(GetParam().name), vtable_face(GetParam().name)}) {
    ASSERT_TRUE(face);
    const auto members = static_cast<DISPID>(GetParam().constants.size() + GetParam().methods.size());
    for (DISPID id = 1; id <= members; ++id) {
      EXPECT_TRUE(is_french_help(help_of(face, id))) << utf8(name_of(face, id));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, HelpTexts, ::testing::ValuesIn(classes()), name_of_case<Class>);

TEST(HelpTextsOfTheLibrary, RecordsAndEnumerations_HaveOne) {
  for (const Record& record : records()) {
    EXPECT_TRUE(is_french_help(help_of(type_named(TKIND_RECORD, record.name)))) << utf8(record.name);
  }
  for (const Enumeration& enumeration : enumerations()) {
    EXPECT_TRUE(is_french_help(help_of(type_named(TKIND_ENUM, enumeration.name)))) << utf8(enumeration.name);
  }
}

TEST(HelpTextsOfTheLibrary, Library_HasOneWithItsAccent) {
  EXPECT_TRUE(is_french_help(library_help()));
  EXPECT_NE(std::wstring::npos, library_help().find(L"apr\u00E8s-vente")) << utf8(library_help());
}

TEST(HelpTextsOfTheLibrary, Accents_OfEveryKindAreThere) {
  std::set<wchar_t> letters;
  for (const Class& entry : classes()) {
    const auto face = dispatch_face(entry.name);
    ASSERT_TRUE(face);
    const auto members = static_cast<DISPID>(entry.constants.size() + entry.methods.size());
    for (DISPID id = 1; id <= members; ++id) {
      for (const wchar_t letter : help_of(face, id)) letters.insert(letter);
    }
  }
  for (const wchar_t letter : std::wstring(L"\u00E0\u00E7\u00E8\u00E9\u00EA")) {
    EXPECT_EQ(1u, letters.count(letter)) << "U+" << std::hex << static_cast<unsigned>(letter);
  }
  EXPECT_EQ(0u, letters.count(L'\u00C3'));
}

}  // namespace
}  // namespace contract
