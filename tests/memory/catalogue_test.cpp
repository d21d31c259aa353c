// The catalogue of calls is complete, and each call does what it says.
#include "memory/catalogue.h"

#include <set>

#include "frame/library.h"
#include "frame/members.h"

namespace {

using namespace host;

/// Methods that no argument and no state makes fail.
const std::set<std::string> kCannotFail{"InvoiceXMLLib.InitConstXML"};

/// Every method of every class, as the type library tells them, and "(variables)" where there are some.
std::set<std::string> published() {
  std::set<std::string> names;
  for (const auto& [name, clsid, iid, empty] : catalogue()) {
    for (const Member& member : members_of(iid)) {
      const std::string method = member.kind == INVOKE_FUNC ? utf8(member.name) : "(variables)";
      names.insert(utf8(name) + "." + method);
    }
  }
  return names;
}

std::set<std::string> named(bool succeeding) {
  std::set<std::string> names;
  for (const CatalogueCall& call : all_calls()) {
    if (SUCCEEDED(call.outcome) == succeeding) names.insert(utf8(call.class_name) + "." + call.method);
  }
  return names;
}

TEST(CatalogueOfCalls, EveryMethodHasACallThatSucceeds) { EXPECT_EQ(published(), named(true)); }

TEST(CatalogueOfCalls, EveryMethodThatCanFailHasACallThatDoes) {
  auto expected = published();
  for (const std::string& name : kCannotFail) EXPECT_EQ(1U, expected.erase(name)) << name;
  EXPECT_EQ(expected, named(false));
}

TEST(CatalogueOfCalls, EachCallAnswersWhatItSays) {
  for (CatalogueCall& call : all_calls()) {
    const auto object = create_dispatch(call.class_name);
    Scene scene(true);
    EXPECT_EQ(call.outcome, call.make(scene, *object.get()))
        << call.title() << " " << utf8(take_error().description);
  }
}

TEST(CatalogueOfCalls, EachCallCanBeMadeAgain) {
  for (CatalogueCall& call : all_calls()) {
    const auto object = create_dispatch(call.class_name);
    for (int i = 0; i < 2; ++i) {
      Scene scene(false);
      EXPECT_EQ(call.outcome, call.make(scene, *object.get())) << call.title();
    }
  }
}

}  // namespace
