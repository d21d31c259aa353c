// F1 in an object browser: the type library names a help file and a context, the help file has its page.
#include <cstring>
#include <set>

#include "support/type_library.h"
#include "help/help_archive.h"

namespace {

using contract::attributes_of;
using contract::function_of;
using contract::name_of;
using contract::type_library;
using host::Bstr;
using host::ComPtr;
using host::HelpArchive;

/// What an object browser asks for: a type, or a member of it.
struct Topic {
  std::wstring name;
  DWORD context;
};

Topic topic_of(const ComPtr<ITypeInfo>& info, MEMBERID member) {
  Topic topic{name_of(info, member), 0};
  Bstr file;
  EXPECT_EQ(S_OK, info->GetDocumentation(member, nullptr, nullptr, &topic.context, file.receive()));
  const std::wstring text(file.view());
  EXPECT_TRUE(text.ends_with(L"VelmoSAV_DLL14.chm")) << host::utf8(topic.name) << ' ' << host::utf8(text);
  return topic;
}

std::vector<ComPtr<ITypeInfo>> types() {
  std::vector<ComPtr<ITypeInfo>> found;
  for (UINT i = 0; i < type_library()->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(S_OK, type_library()->GetTypeInfo(i, info.receive()));
    found.push_back(std::move(info));
  }
  return found;
}

/// Members of the library's own interfaces, each once.
std::vector<Topic> members() {
  std::vector<Topic> found;
  for (const auto& info : types()) {
    const auto attributes = attributes_of(info);
    if (attributes->typekind != TKIND_DISPATCH) continue;
    std::set<MEMBERID> seen;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      const MEMBERID member = function_of(info, i)->memid;
      // Those of IDispatch are the platform's.
      if (member < 0x60000000 && seen.insert(member).second) found.push_back(topic_of(info, member));
    }
  }
  return found;
}

/// From the type library's header in the DLL: the reader of Wine leaves the library's own context out.
DWORD library_context() {
  constexpr std::size_t kPlace = 0x2C;
  const HMODULE library =
      LoadLibraryExW(contract::registered_path().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const HRSRC resource = FindResourceW(library, MAKEINTRESOURCEW(1), L"TYPELIB");
  const HGLOBAL data = resource ? LoadResource(library, resource) : nullptr;
  EXPECT_NE(nullptr, data);
  DWORD context = 0;
  if (data) std::memcpy(&context, static_cast<const char*>(LockResource(data)) + kPlace, sizeof context);
  FreeLibrary(library);
  return context;
}

std::string in_code_page(const std::wstring& text) {
  std::string result(text.size(), '\0');
  WideCharToMultiByte(1252, 0, text.data(), static_cast<int>(text.size()), result.data(),
                      static_cast<int>(result.size()), nullptr, nullptr);
  return result;
}

class HelpContexts : public ::testing::Test {
 protected:
  /// The page of a context and the place on it.
  void find(DWORD context, std::string& page, std::string& anchor) {
    const auto found = places_.find(context);
    ASSERT_NE(places_.end(), found) << "context " << context;
    const std::size_t mark = found->second.find('#');
    page = found->second.substr(0, mark);
    anchor = mark == std::string::npos ? std::string() : found->second.substr(mark + 1);
  }

  HelpArchive archive_{HELP_FILE};
  const std::map<DWORD, std::string> places_ = archive_.contexts();
};

TEST_F(HelpContexts, EveryMember_HasAContextOfItsOwn) {
  std::set<DWORD> contexts;
  const auto topics = members();
  for (const Topic& topic : topics) contexts.insert(topic.context);
  EXPECT_GT(topics.size(), 700u);
  EXPECT_EQ(topics.size(), contexts.size());
  EXPECT_EQ(0u, contexts.count(0));
}

TEST_F(HelpContexts, EveryMember_HasAPlaceThatNamesIt) {
  for (const Topic& topic : members()) {
    std::string page, anchor;
    find(topic.context, page, anchor);
    const std::string text = archive_.read(page);
    const std::string name = in_code_page(topic.name);
    const std::string mark =
        anchor.empty() ? "." + name + "</title>" : "<a name=\"" + anchor + "\"></a><code>" + name + "</code>";
    EXPECT_NE(std::string::npos, text.find(mark)) << page << ' ' << mark;
  }
}

TEST_F(HelpContexts, EveryType_HasAPage) {
  for (const auto& info : types()) {
    const Topic topic = topic_of(info, MEMBERID_NIL);
    std::string page, anchor;
    find(topic.context, page, anchor);
    const std::wstring name = topic.name.starts_with(L'_') ? topic.name.substr(1) : topic.name;
    EXPECT_NE(std::string::npos, archive_.read(page).find(in_code_page(name))) << page;
  }
}

TEST_F(HelpContexts, TheLibrary_HasThePageThatOpensFirst) {
  std::string page, anchor;
  find(library_context(), page, anchor);
  EXPECT_EQ("index.html", page);
}

TEST_F(HelpContexts, NoContextOfTheFile_IsUnknownToTheTypeLibrary) {
  std::set<DWORD> known{library_context()};
  for (const Topic& topic : members()) known.insert(topic.context);
  for (const auto& info : types()) known.insert(topic_of(info, MEMBERID_NIL).context);
  for (const auto& [context, page] : places_) EXPECT_TRUE(known.contains(context)) << context << ' ' << page;
}

TEST_F(HelpContexts, EveryLink_LeadsToAFileOfTheArchive) {
  std::set<std::string> seen{"index.html", "guide.html"};
  std::vector<std::string> waiting(seen.begin(), seen.end());
  while (!waiting.empty()) {
    const std::string page = waiting.back();
    waiting.pop_back();
    const std::string text = archive_.read(page);
    for (const std::string mark : {"href=\"", "src=\""}) {
      for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
        const std::size_t start = at + mark.size();
        const std::string target = text.substr(start, text.find_first_of("\"#", start) - start);
        if (target.empty() || !seen.insert(target).second) continue;
        ASSERT_TRUE(archive_.has(target)) << page << " leads to " << target;
        if (target.ends_with(".html")) waiting.push_back(target);
      }
    }
  }
  // Index, guide, and a page for each class and each method at least.
  EXPECT_GT(seen.size(), 31u + 96u);
}

}  // namespace
