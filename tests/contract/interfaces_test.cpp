// The members of each interface: order, slots, identifiers, names, types and default values.
#include <sstream>

#include "contract/published.h"
#include "support/type_library.h"

namespace contract {
namespace {

/// A slot of an interface, and what is said of it in one line: "12 get PC_TARIF_HT".
std::string slot_text(DISPID id, INVOKEKIND kind, const std::wstring& name) {
  const char* word = kind == INVOKE_PROPERTYGET   ? " get "
                     : kind == INVOKE_PROPERTYPUT ? " put "
                     : kind == INVOKE_FUNC        ? " method "
                                                  : " other ";
  return std::to_string(id) + word + utf8(name);
}

/// Variables first, a get and a let under one identifier; then methods.
std::vector<std::string> expected_slots(const Class& entry) {
  std::vector<std::string> slots;
  DISPID id = 0;
  for (const Constant& constant : entry.constants) {
    slots.push_back(slot_text(++id, INVOKE_PROPERTYGET, constant.name));
    slots.push_back(slot_text(id, INVOKE_PROPERTYPUT, constant.name));
  }
  for (const Method& method : entry.methods) slots.push_back(slot_text(++id, INVOKE_FUNC, method.name));
  return slots;
}

std::string type_of(const Value& value) {
  static constexpr const char* kTypes[] = {"UI1", "I2", "I4", "BOOL", "BSTR"};
  static_assert(std::size(kTypes) == std::variant_size_v<Value>);
  return kTypes[value.index()];
}

bool is_by_reference(const Parameter& parameter) { return std::string(parameter.type).back() == '*'; }

std::string expected_signature(const Method& method) {
  std::string text = "(";
  for (const Parameter& parameter : method.parameters) {
    text += is_by_reference(parameter) ? "in out " : "in ";
    if (parameter.presence.optional) text += "optional ";
    text += std::string(parameter.type) + ' ' + utf8(parameter.name) + ", ";
  }
  if (method.result) text += std::string("out retval ") + method.result + "*, ";
  return text + ")";
}

std::string flags_text(USHORT flags) {
  std::ostringstream text;
  if (flags & PARAMFLAG_FIN) text << "in ";
  if (flags & PARAMFLAG_FOUT) text << "out ";
  if (flags & PARAMFLAG_FRETVAL) text << "retval ";
  if (flags & PARAMFLAG_FOPT) text << "optional ";
  constexpr USHORT kKnown =
      PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FRETVAL | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
  if (flags & ~kKnown) text << "flags " << std::hex << flags << ' ';
  return text.str();
}

/// `names` are the member's name and its arguments'; an argument that has none there (a result) shows none.
std::string signature(const ComPtr<ITypeInfo>& info, const FUNCDESC& function,
                      const std::vector<std::wstring>& names) {
  std::string text = "(";
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    const bool is_result = (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    const auto place = static_cast<std::size_t>(i) + 1;
    text += flags_text(element.paramdesc.wParamFlags) + type_text(info, element.tdesc);
    if (!is_result && place < names.size()) text += ' ' + utf8(names[place]);
    text += ", ";
  }
  return text + ")";
}

class Interface : public ::testing::TestWithParam<Class> {
 protected:
  void SetUp() override {
    info_ = vtable_face(GetParam().name);
    ASSERT_TRUE(info_);
    const UINT count = attributes_of(info_)->cFuncs;
    for (UINT i = 0; i < count; ++i) functions_.push_back(function_of(info_, i));
    slots_ = expected_slots(GetParam());
    ASSERT_EQ(slots_.size(), functions_.size());
  }

  /// Each method with the function that stands in its place.
  template <class Action>
  void for_each_method(Action action) const {
    const std::size_t first = 2 * GetParam().constants.size();
    for (std::size_t i = 0; i < GetParam().methods.size(); ++i) {
      action(GetParam().methods[i], *functions_[first + i]);
    }
  }

  ComPtr<ITypeInfo> info_;
  std::vector<Held<FUNCDESC>> functions_;
  std::vector<std::string> slots_;
};

TEST_P(Interface, Members_StandInTheirOrderUnderConsecutiveIdentifiers) {
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const FUNCDESC& function = *functions_[i];
    EXPECT_EQ(slots_[i], slot_text(function.memid, function.invkind, name_of(info_, function.memid)));
  }
}

TEST_P(Interface, Slots_FollowThoseOfIDispatchWithoutGap) {
  for (std::size_t i = 0; i < functions_.size(); ++i) {
    EXPECT_EQ((kInheritedSlots + i) * kSlotSize, static_cast<std::size_t>(functions_[i]->oVft)) << slots_[i];
  }
  EXPECT_EQ((kInheritedSlots + functions_.size()) * kSlotSize, attributes_of(info_)->cbSizeVft);
}

TEST_P(Interface, EveryMember_ReturnsAnHresultFromAStdcallSlot) {
  for (std::size_t i = 0; i < functions_.size(); ++i) {
    EXPECT_EQ(VT_HRESULT, functions_[i]->elemdescFunc.tdesc.vt) << slots_[i];
    EXPECT_EQ(CC_STDCALL, functions_[i]->callconv) << slots_[i];
    EXPECT_EQ(FUNC_PUREVIRTUAL, functions_[i]->funckind) << slots_[i];
  }
}

TEST_P(Interface, EveryVariable_IsGotAndLetByItsType) {
  for (std::size_t i = 0; i < GetParam().constants.size(); ++i) {
    const std::string type = type_of(GetParam().constants[i].initial);
    EXPECT_EQ("(out retval " + type + "*, )", signature(info_, *functions_[2 * i], {})) << slots_[2 * i];
    EXPECT_EQ("(in " + type + ", )", signature(info_, *functions_[2 * i + 1], {})) << slots_[2 * i + 1];
  }
}

TEST_P(Interface, EveryMethod_HasItsParametersAndItsResult) {
  for_each_method([&](const Method& method, const FUNCDESC& function) {
    EXPECT_EQ(expected_signature(method), signature(info_, function, names_of(info_, function.memid)))
        << utf8(method.name);
  });
}

/// 0, false and the empty text stand for themselves: the library may leave them unsaid.
void expect_default(const Method& method, const Parameter& expected, const PARAMDESC& found) {
  const bool is_published = (found.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0;
  const std::string place = utf8(method.name) + ' ' + utf8(expected.name);
  if (!is_published) {
    EXPECT_EQ(0, expected.presence.standard.value_or(0)) << place;
    return;
  }
  ASSERT_NE(nullptr, found.pparamdescex) << place;
  ASSERT_TRUE(expected.presence.standard.has_value()) << place;
  VARIANT value = found.pparamdescex->varDefaultValue;
  if (value.vt == VT_BSTR) {
    EXPECT_EQ(0, *expected.presence.standard) << place;
    EXPECT_EQ(0u, SysStringLen(value.bstrVal)) << place;
    return;
  }
  host::Variant number;
  ASSERT_EQ(S_OK, VariantChangeType(&number.get(), &value, 0, VT_I4)) << place;
  EXPECT_EQ(*expected.presence.standard, number.get().lVal) << place;
}

TEST_P(Interface, DefaultValues_AreThoseOfTheParameters) {
  for_each_method([&](const Method& method, const FUNCDESC& function) {
    ASSERT_LE(method.parameters.size(), static_cast<std::size_t>(function.cParams)) << utf8(method.name);
    for (std::size_t i = 0; i < method.parameters.size(); ++i) {
      expect_default(method, method.parameters[i], function.lprgelemdescParam[i].paramdesc);
    }
  });
}

TEST_P(Interface, DefaultValues_HaveTheTypeOfTheirParameter) {
  for_each_method([&](const Method& method, const FUNCDESC& function) {
    for (SHORT i = 0; i < function.cParams; ++i) {
      const ELEMDESC& element = function.lprgelemdescParam[i];
      if ((element.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) continue;
      const TYPEDESC& type = element.tdesc.vt == VT_PTR ? *element.tdesc.lptdesc : element.tdesc;
      EXPECT_EQ(type.vt, element.paramdesc.pparamdescex->varDefaultValue.vt)
          << utf8(method.name) << " parameter " << i + 1;
    }
  });
}

DISPID id_by_name(const ComPtr<ITypeInfo>& info, std::wstring name) {
  LPOLESTR names[] = {name.data()};
  MEMBERID id = MEMBERID_NIL;
  EXPECT_EQ(S_OK, info->GetIDsOfNames(names, 1, &id)) << utf8(name);
  return id;
}

TEST_P(Interface, EveryMember_IsFoundByItsName) {
  for (const auto& face : {info_, dispatch_face(GetParam().name)}) {
    DISPID id = 0;
    for (const Constant& constant : GetParam().constants) EXPECT_EQ(++id, id_by_name(face, constant.name));
    for (const Method& method : GetParam().methods) EXPECT_EQ(++id, id_by_name(face, method.name));
  }
}

TEST_P(Interface, EveryParameter_IsFoundByItsName) {
  const auto face = dispatch_face(GetParam().name);
  for (const Method& method : GetParam().methods) {
    std::vector<std::wstring> texts{method.name};
    for (const Parameter& parameter : method.parameters) texts.emplace_back(parameter.name);
    std::vector<LPOLESTR> names;
    for (std::wstring& text : texts) names.push_back(text.data());
    std::vector<MEMBERID> ids(names.size(), MEMBERID_NIL);
    ASSERT_EQ(S_OK, face->GetIDsOfNames(names.data(), static_cast<UINT>(names.size()), ids.data()))
        << utf8(method.name);
    for (std::size_t i = 1; i < ids.size(); ++i) {
      EXPECT_EQ(static_cast<MEMBERID>(i) - 1, ids[i]) << utf8(method.name) << ' ' << utf8(texts[i]);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Interface, ::testing::ValuesIn(classes()), name_of_case<Class>);

TEST(AccentedMembers, ReadFromTheLibrary_HaveTheirAccents) {
  const auto info = vtable_face(L"AchatVente");
  ASSERT_TRUE(info);
  EXPECT_EQ(L"PC_ModeDeCalculCa_HT_Remis\u00E9", name_of(info, 7));
  EXPECT_EQ(L"PC_ModeDeCalculCa_HT_Remis\u00E9Escompt\u00E9", name_of(info, 8));
}

TEST(AccentedMembers, FoundByName_WhateverTheCase) {
  const auto info = dispatch_face(L"AchatVente");
  ASSERT_TRUE(info);
  EXPECT_EQ(7, id_by_name(info, L"PC_ModeDeCalculCa_HT_Remis\u00E9"));
  EXPECT_EQ(7, id_by_name(info, L"pc_modedecalculca_ht_remis\u00E9"));
  EXPECT_EQ(7, id_by_name(info, L"PC_MODEDECALCULCA_HT_REMIS\u00C9"));
  EXPECT_EQ(8, id_by_name(info, L"PC_ModeDeCalculCa_HT_Remis\u00E9Escompt\u00E9"));
  EXPECT_EQ(8, id_by_name(info, L"PC_MODEDECALCULCA_HT_REMIS\u00C9ESCOMPT\u00C9"));
}

TEST(AccentedMembers, WithoutTheirAccents_AreUnknown) {
  const auto info = dispatch_face(L"AchatVente");
  ASSERT_TRUE(info);
  for (std::wstring name : {L"PC_ModeDeCalculCa_HT_Remise", L"PC_ModeDeCalculCa_HT_RemiseEscompte"}) {
    LPOLESTR names[] = {name.data()};
    MEMBERID id = MEMBERID_NIL;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, info->GetIDsOfNames(names, 1, &id)) << utf8(name);
  }
}

}  // namespace
}  // namespace contract
