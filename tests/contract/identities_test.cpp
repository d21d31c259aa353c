// Every identifier is the one that compiled hosts hold, and none is missing from the list of them.
#include <map>

#include "support/type_library.h"

namespace contract {
namespace {

using Kind = std::pair<TYPEKIND, std::string>;

std::map<Kind, std::string> listed() {
  return {
#define LIBRARY_IDENTITY(name, identifier)
#define CLASS_IDENTITY(name, class_identifier, interface_identifier) \
  {{TKIND_COCLASS, #name}, class_identifier}, {{TKIND_DISPATCH, "_" #name}, interface_identifier},
#define RECORD_IDENTITY(name, identifier) {{TKIND_RECORD, #name}, identifier},
#define ENUMERATION_IDENTITY(name, identifier) {{TKIND_ENUM, #name}, identifier},
#include "contract/identities.def"
  };
}

std::string text_of(const GUID& identifier) {
  wchar_t text[64];
  StringFromGUID2(identifier, text, 64);
  return utf8(std::wstring(text + 1, 36));
}

TEST(Identities, Types_CarryTheIdentifiersThatHostsHold) {
  std::map<Kind, std::string> found;
  const auto library = type_library();
  ASSERT_TRUE(library);
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(S_OK, library->GetTypeInfo(i, info.receive()));
    const auto attributes = attributes_of(info);
    found[{attributes->typekind, utf8(name_of(info))}] = text_of(attributes->guid);
  }
  EXPECT_EQ(listed(), found);
}

TEST(Identities, Library_CarriesTheIdentifierThatHostsHold) {
  const std::string listed_library =
#define LIBRARY_IDENTITY(name, identifier) identifier
#define CLASS_IDENTITY(name, class_identifier, interface_identifier)
#define RECORD_IDENTITY(name, identifier)
#define ENUMERATION_IDENTITY(name, identifier)
#include "contract/identities.def"
      ;
  const auto library = type_library();
  ASSERT_TRUE(library);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
  EXPECT_EQ(listed_library, text_of(attributes->guid));
  library->ReleaseTLibAttr(attributes);
}

TEST(Identities, ProgIds_LeadToTheClassesThatHostsHold) {
  const std::pair<const wchar_t*, std::string> classes[] = {
#define LIBRARY_IDENTITY(name, identifier)
#define CLASS_IDENTITY(name, class_identifier, interface_identifier) \
  {L"VelmoSAV_DLL14." #name, class_identifier},
#define RECORD_IDENTITY(name, identifier)
#define ENUMERATION_IDENTITY(name, identifier)
#include "contract/identities.def"
  };
  for (const auto& [prog_id, identifier] : classes) {
    CLSID found{};
    EXPECT_EQ(S_OK, CLSIDFromProgID(prog_id, &found)) << utf8(prog_id);
    EXPECT_EQ(identifier, text_of(found)) << utf8(prog_id);
  }
}

}  // namespace
}  // namespace contract
