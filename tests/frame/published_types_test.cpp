// The types of the published interfaces against those that a late-bound call can pass. A member with a type
// that is not in the list below needs support in the dispatcher and tests of its own before it is listed.
#include <algorithm>
#include <set>

#include "frame/invocation.h"
#include "frame/library.h"
#include "frame/members.h"

namespace {

using host::catalogue;
using host::CatalogueEntry;
using host::ComPtr;
using host::Invocation;
using host::Member;
using host::Outcome;
using host::utf8;
using host::Variant;

const std::set<std::string> kPassable{
    "UI1", "I2",  "I4",    "R8",    "BOOL",      "BSTR",     "DISPATCH",          "VARIANT",
    "I2*", "R8*", "BOOL*", "BSTR*", "DISPATCH*", "VARIANT*", "array of VARIANT*", "array of DISPATCH*"};
const std::set<std::string> kReturnable{"UI1",
                                        "I2",
                                        "I4",
                                        "R8",
                                        "CY",
                                        "BOOL",
                                        "BSTR",
                                        "VARIANT",
                                        "enumeration",
                                        "DISPATCH",
                                        "record Type_RepartTVA"};

bool is_record_by_reference(const std::string& type) {
  return type.rfind("record ", 0) == 0 && type.back() == '*' && type.find('*') == type.size() - 1;
}

/// The type of a property's value in a VARIANT.
VARTYPE variant_type(const std::string& type) {
  if (type == "UI1") return VT_UI1;
  if (type == "I2") return VT_I2;
  if (type == "I4") return VT_I4;
  if (type == "BOOL") return VT_BOOL;
  return type == "BSTR" ? VT_BSTR : VT_EMPTY;
}

class PublishedTypesOfEachClass : public ::testing::TestWithParam<CatalogueEntry> {
 protected:
  void SetUp() override {
    object_ = host::create_dispatch(GetParam().name);
    members_ = host::members_of(GetParam().iid);
  }

  ComPtr<IDispatch> object_;
  std::vector<Member> members_;
};

TEST_P(PublishedTypesOfEachClass, EveryParameter_IsOfATypeThatCanBePassed) {
  for (const Member& member : members_) {
    for (const host::Parameter& parameter : member.parameters) {
      EXPECT_TRUE(kPassable.count(parameter.type) != 0 || is_record_by_reference(parameter.type))
          << utf8(member.name) << ' ' << utf8(parameter.name) << ": " << parameter.type;
    }
  }
}

TEST_P(PublishedTypesOfEachClass, EveryResult_IsOfATypeThatCanBeReturned) {
  for (const Member& member : members_) {
    EXPECT_TRUE(member.result.empty() || kReturnable.count(member.result) != 0)
        << utf8(member.name) << ": " << member.result;
  }
}

TEST_P(PublishedTypesOfEachClass, EveryMethodWithARequiredParameter_CalledWithoutArguments_AsksForIt) {
  for (const Member& member : members_) {
    const bool requires_one = std::any_of(member.parameters.begin(), member.parameters.end(),
                                          [](const host::Parameter& p) { return !p.optional; });
    if (member.kind != INVOKE_FUNC || !requires_one) continue;
    EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, Invocation(object_.get(), member.id).run().code) << utf8(member.name);
  }
}

TEST_P(PublishedTypesOfEachClass, EveryProperty_Read_GivesItsPublishedType) {
  for (const Member& member : members_) {
    if (member.kind != INVOKE_PROPERTYGET) continue;
    const Outcome outcome = Invocation(object_.get(), member.id).flags(DISPATCH_PROPERTYGET).run();
    EXPECT_EQ(S_OK, outcome.code) << utf8(member.name);
    EXPECT_EQ(variant_type(member.result), outcome.result.get().vt) << utf8(member.name);
  }
}

TEST_P(PublishedTypesOfEachClass, EveryProperty_HasAGetAndALetUnderOneIdentifier) {
  std::multiset<DISPID> gets, lets;
  for (const Member& member : members_) {
    if (member.kind == INVOKE_PROPERTYGET) gets.insert(member.id);
    if (member.kind == INVOKE_PROPERTYPUT) lets.insert(member.id);
  }
  EXPECT_EQ(gets, lets);
}

/// A number as text, another one than `current`; of a Boolean the opposite.
std::wstring other_number(const VARIANT& current) {
  if (current.vt == VT_BOOL) return current.boolVal ? L"0" : L"-1";
  return velmosav::to_text(current).view() == L"7" ? L"8" : L"7";
}

TEST_P(PublishedTypesOfEachClass, EveryProperty_WrittenWithAnotherValueAsText_ReadsItAsItsOwnType) {
  for (const Member& member : members_) {
    if (member.kind != INVOKE_PROPERTYPUT) continue;
    const auto read = [&] { return Invocation(object_.get(), member.id).flags(DISPATCH_PROPERTYGET).run(); };
    const Outcome before = read();
    const std::wstring number = other_number(before.result.get());
    const Variant text = host::text_value(number);
    ASSERT_EQ(S_OK, Invocation(object_.get(), member.id)
                        .flags(DISPATCH_PROPERTYPUT)
                        .pass_named(DISPID_PROPERTYPUT, text.get())
                        .run()
                        .code)
        << utf8(member.name);
    Outcome after = read();
    VARIANT& value = after.result.get();
    EXPECT_EQ(before.result.get().vt, value.vt) << utf8(member.name);
    ASSERT_EQ(S_OK, VariantChangeType(&value, &value, 0, VT_I4)) << utf8(member.name);
    EXPECT_EQ(std::stol(number), value.lVal) << utf8(member.name);
  }
}

INSTANTIATE_TEST_SUITE_P(, PublishedTypesOfEachClass, ::testing::ValuesIn(catalogue()), host::class_name_of);

/// The lists above are no wider than what is published.
TEST(PublishedTypes, EveryListedType_IsInUse) {
  std::set<std::string> parameters, results;
  for (const CatalogueEntry& entry : catalogue()) {
    for (const Member& member : host::members_of(entry.iid)) {
      for (const host::Parameter& parameter : member.parameters) parameters.insert(parameter.type);
      results.insert(member.result);
    }
  }
  for (const std::string& type : kPassable) EXPECT_EQ(1u, parameters.count(type)) << type;
  for (const std::string& type : kReturnable) EXPECT_EQ(1u, results.count(type)) << type;
}

}  // namespace
