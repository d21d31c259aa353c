// Declarations of entities: none is expanded, and nothing outside the text is reached.
#include "hostile/hostile_text.h"
#include "hostile/outside_world.h"

namespace {

using hostile::OutsideWorld;
using hostile::repeated;

class EntityBomb : public hostile::HostileText {
 protected:
  EntityBomb() : HostileText("entity bombs") {}
};

/// Ten levels of ten references: ten thousand million words for a kilobyte.
TEST_F(EntityBomb, LevelsOfReferences_AreNotExpanded) {
  std::wstring declarations = L"<!ENTITY e0 \"mot\">";
  for (int level = 1; level <= 10; ++level) {
    declarations += L"<!ENTITY e" + std::to_wstring(level) + L" \"" +
                    repeated(L"&e" + std::to_wstring(level - 1) + L";", 10) + L"\">";
  }
  is_refused(L"<!DOCTYPE INVOICE [" + declarations + L"]><INVOICE>&e10;</INVOICE>");
  is_refused(L"<!DOCTYPE INVOICE [" + declarations + L"]><INVOICE A=\"&e10;\"/>");
}

TEST_F(EntityBomb, ALongEntityReferredToOften_IsNotExpanded) {
  is_refused(L"<!DOCTYPE INVOICE [<!ENTITY e \"" + std::wstring(100'000, L'x') + L"\">]><INVOICE>" +
             repeated(L"&e;", 100'000) + L"</INVOICE>");
}

TEST_F(EntityBomb, ParameterEntities_AreNotExpanded) {
  is_refused(
      L"<!DOCTYPE INVOICE [<!ENTITY % a \"<!ENTITY e 'x'>\"><!ENTITY % b \"%a;%a;%a;\">%b;%b;]>"
      L"<INVOICE>&e;</INVOICE>");
}

TEST_F(EntityBomb, AnEntityOfItself_IsNotExpanded) {
  is_refused(L"<!DOCTYPE INVOICE [<!ENTITY e \"&f;\"><!ENTITY f \"&e;\">]><INVOICE>&e;</INVOICE>");
}

TEST_F(EntityBomb, AReferenceWithoutDeclaration_IsRefused) {
  is_refused(L"<INVOICE>&e;</INVOICE>");
  is_refused(L"<INVOICE A=\"&e;\"/>");
}

/// Each text is written for each address of the world outside.
class OutsideReference : public hostile::HostileText {
 protected:
  OutsideReference() : HostileText("references to files, pipes and ports") {}
  ~OutsideReference() override {
    EXPECT_FALSE(world_.pipe_was_opened());
    EXPECT_FALSE(world_.port_was_opened());
  }

  /// `text` with the address in the place of each "@".
  static std::wstring with(std::wstring text, const std::wstring& address) {
    for (std::size_t i = 0; (i = text.find(L'@', i)) != std::wstring::npos; i += address.size()) {
      text.replace(i, 1, address);
    }
    return text;
  }
  void is_refused_everywhere(const wchar_t* text) {
    for (const std::wstring& address : world_.addresses()) is_refused(with(text, address));
  }
  void stays_inside(const wchar_t* text) {
    for (const std::wstring& address : world_.addresses()) {
      stays_harmless(with(text, address), OutsideWorld::kSecret);
    }
  }

  OutsideWorld world_;
};

TEST_F(OutsideReference, ExternalEntity_IsNotRead) {
  is_refused_everywhere(L"<!DOCTYPE INVOICE [<!ENTITY e SYSTEM \"@\">]><INVOICE>&e;</INVOICE>");
  is_refused_everywhere(L"<!DOCTYPE INVOICE [<!ENTITY e PUBLIC \"p\" \"@\">]><INVOICE>&e;</INVOICE>");
}

TEST_F(OutsideReference, ExternalSubset_IsNotRead) {
  is_refused_everywhere(L"<!DOCTYPE INVOICE SYSTEM \"@\"><INVOICE/>");
  is_refused_everywhere(L"<!DOCTYPE INVOICE PUBLIC \"p\" \"@\"><INVOICE/>");
}

TEST_F(OutsideReference, ExternalParameterEntity_IsNotRead) {
  is_refused_everywhere(L"<!DOCTYPE INVOICE [<!ENTITY % e SYSTEM \"@\"> %e;]><INVOICE/>");
}

TEST_F(OutsideReference, NotationAndUnparsedEntity_AreNotRead) {
  is_refused_everywhere(
      L"<!DOCTYPE INVOICE [<!NOTATION n SYSTEM \"@\"><!ENTITY e SYSTEM \"@\" NDATA n>"
      L"<!ATTLIST INVOICE a ENTITY #IMPLIED>]><INVOICE a=\"e\"/>");
}

TEST_F(OutsideReference, Inclusion_IsNotFollowed) {
  stays_inside(
      L"<INVOICE xmlns:xi=\"http://www.w3.org/2001/XInclude\"><xi:include href=\"@\" parse=\"text\"/>"
      L"<xi:include href=\"@\"/></INVOICE>");
}

TEST_F(OutsideReference, StyleSheetAndModel_AreNotRead) {
  stays_inside(
      L"<?xml-stylesheet type=\"text/xsl\" href=\"@\"?><?xml-model href=\"@\"?><INVOICE>"
      L"<?xml-stylesheet type=\"text/xsl\" href=\"@\"?></INVOICE>");
}

TEST_F(OutsideReference, SchemaLocation_IsNotRead) {
  stays_inside(
      L"<INVOICE xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:schemaLocation=\"urn:x @\" "
      L"xsi:noNamespaceSchemaLocation=\"@\"><x xmlns=\"urn:x\"/></INVOICE>");
}

TEST_F(OutsideReference, SchemaNamespaceAndBase_AreNotRead) {
  stays_inside(L"<INVOICE xml:base=\"@\"><x xmlns=\"x-schema:@\"/><y xmlns:s=\"x-schema:@\"/></INVOICE>");
}

/// The watch itself: who does open them is seen.
TEST(OutsideWorldWatch, SeesAnOpenedPipe) {
  const OutsideWorld world;
  const HANDLE client =
      CreateFileW(world.pipe().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(INVALID_HANDLE_VALUE, client);
  EXPECT_TRUE(world.pipe_was_opened());
  CloseHandle(client);
}

TEST(OutsideWorldWatch, SeesAnOpenedPort) {
  const OutsideWorld world;
  world.open_port();
  EXPECT_TRUE(world.port_was_opened());
}

}  // namespace
