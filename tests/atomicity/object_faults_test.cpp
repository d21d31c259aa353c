// Objects of the host that fail at each of their uses in turn: what was done before remains, nothing is done
// after, and the host's variables hold what the table says.
#include <algorithm>
#include <cstdio>
#include <fstream>

#include "atomicity/failing_object.h"
#include "atomicity/fault_case.h"
#include "atomicity/report.h"
#include "menus/scripted_popup.h"
#include "services/translation_fixture.h"

namespace atomicity {
namespace {

/// A method that uses an object of the host.
struct ObjectCase {
  const wchar_t* class_name;
  const wchar_t* method;
  HRESULT (*call)(World& world, IDispatch*& object);
  /// Uses, from this number on, whose failure leaves a variable changed; 0 for none.
  std::size_t changes_from = 0;
  const char* changed = "";
};

void PrintTo(const ObjectCase& tested, std::ostream* stream) { *stream << host::utf8(tested.method); }

bool is_put(const std::wstring& use) {
  return use.starts_with(L"put ") || use.starts_with(L"call AppendChunk");
}

class AtomicityOfObjects : public ::testing::TestWithParam<ObjectCase> {
 protected:
  static std::string file() { return "atomicity-" + std::to_string(GetCurrentProcessId()) + ".bin"; }
  void SetUp() override {
    std::ofstream stream(file(), std::ios::binary);
    stream << std::string(120000, 'x');
  }
  void TearDown() override { std::remove(file().c_str()); }

  static void prepare(World& world) {
    const std::string name = file();
    world.text = Text(std::wstring(name.begin(), name.end()));
    world.value = host::missing();
    world.number = world.other_number = 5;
    world.remember();
  }
};

TEST_P(AtomicityOfObjects, FailingAtEachUse_LeaveWhatWasDoneBeforeIt) {
  const ObjectCase& tested = GetParam();
  const Method* method = method_named(tested.class_name, tested.method);
  ASSERT_NE(nullptr, method);

  const FailingObject sound(0);
  World untouched;
  prepare(untouched);
  IDispatch* object = sound.get();
  ASSERT_EQ(S_OK, tested.call(untouched, object));
  const auto uses = sound.log();
  ASSERT_FALSE(uses.empty());

  for (std::size_t n = 1; n <= uses.size(); ++n) {
    const std::string use = host::utf8(uses[n - 1]);
    // The one use whose failure is skipped.
    if (use == "get ScaleMode") continue;
    const FailingObject failing(n);
    World world;
    prepare(world);
    object = failing.get();
    EXPECT_EQ(FailingObject::kFailure, tested.call(world, object)) << use;
    EXPECT_EQ(L"L'objet refuse", host::take_error().description) << use;
    EXPECT_EQ(failing.get(), object);
    EXPECT_TRUE(std::equal(failing.log().begin(), failing.log().end(), uses.begin(),
                           uses.begin() + static_cast<std::ptrdiff_t>(n)))
        << use;
    const bool changes = tested.changes_from != 0 && n >= tested.changes_from;
    EXPECT_EQ(changes ? std::vector<std::string>{tested.changed} : std::vector<std::string>{},
              world.differences())
        << use;
    EXPECT_TRUE(world.results_are_empty());
    const bool traces =
        changes || std::any_of(uses.begin(), uses.begin() + static_cast<std::ptrdiff_t>(n) - 1, is_put);
    EXPECT_TRUE(method->leaves || !traces) << "the list says that nothing changes";
    if (HasFailure()) return;
    report(tested.class_name, tested.method,
           "the object fails at use " + std::to_string(n) + " (" + use + ")", "of the called object", traces);
  }
}

HRESULT check_given(World& world, IDispatch*& object) {
  return tools()->CheckFmtNum(&object, &world.value.get(), world.truth_result());
}
HRESULT fit(World& world, IDispatch*& object) {
  const Variant colour(255L);
  const Variant bold = host::bool_value(true);
  return tools()->SetLabelHauteur(object, Text(L"texte"), world.value.get(), colour.get(), bold.get());
}
HRESULT shape(World&, IDispatch*& object) { return tools()->SetRegionStdBout(&object); }
HRESULT hovered(World& world, IDispatch*& object) {
  VARIANT result{};
  result.vt = VT_I4;
  const HRESULT code = tools()->GetValScrollSurvol(&object, &world.number, &world.other_number, &result);
  if (FAILED(code)) {
    EXPECT_EQ(VT_EMPTY, result.vt);
  }
  VariantClear(&result);
  return code;
}
HRESULT set_up_column(World&, IDispatch*& object) {
  return tools()->GestionColQte(&object, nullptr, 3, Text(L">0;"), nullptr, VARIANT_FALSE);
}
HRESULT load(World& world, IDispatch*& object) {
  return rules()->RenseignerChampBinaire(&object, world.text.in_out(), world.truth_result());
}

const ObjectCase kCases[] = {
    {L"Outil", L"CheckFmtNum", check_given, 3, "value"},
    {L"Outil", L"SetLabelHauteur", fit},
    {L"Outil", L"SetRegionStdBout", shape},
    {L"Outil", L"GetValScrollSurvol", hovered},
    {L"Outil", L"GestionColQte", set_up_column},
    {L"Periodicite", L"RenseignerChampBinaire", load},
};

INSTANTIATE_TEST_SUITE_P(Methods, AtomicityOfObjects, ::testing::ValuesIn(kCases),
                         [](const auto& tested) { return host::utf8(tested.param.method); });

struct MenuCase {
  const wchar_t* method;
  HRESULT (*open)(IDispatch*& button, IndMenuPop& answer);
};

void PrintTo(const MenuCase& tested, std::ostream* stream) { *stream << host::utf8(tested.method); }

class AtomicityOfMenus : public ::testing::TestWithParam<MenuCase> {
 protected:
  /// Opens the menu; the fault must leave the answer empty, the button and the menu unreferenced.
  void expect_fault(IDispatch* button, HRESULT expected, const char* fault) {
    const host::ScriptedPopup* popup = popup_;
    IndMenuPop answer = IndMenuPop_Creer;
    IDispatch* passed = button;
    EXPECT_EQ(expected, GetParam().open(passed, answer)) << fault;
    EXPECT_EQ(static_cast<IndMenuPop>(0), answer) << fault;
    EXPECT_EQ(button, passed);
    EXPECT_EQ(1, popup->object()->references()) << fault;
    if (!HasFailure()) {
      const bool own = (static_cast<unsigned long>(expected) & 0xFFFF0000UL) == 0x800A0000UL;
      report(L"ContratDoc", GetParam().method, fault,
             own ? std::to_string(expected & 0xFFFF) : "of the called object", false);
    }
  }

  static void refuse(const host::ScriptedPopup& popup, const wchar_t* member) {
    popup.object()->on_get(member, [](const auto&) -> Variant {
      throw host::FakeObject::Error{FailingObject::kFailure, L"Menu", L"Le menu refuse"};
    });
  }

  const host::ScriptedPopup* popup_ = nullptr;
};

TEST_P(AtomicityOfMenus, EachFault_LeavesNothingBehind) {
  const FailingObject button(0);
  {
    host::ScriptedPopup popup;
    popup_ = &popup;
    popup.creation = E_FAIL;
    expect_fault(button.get(), hresult_of(429), "the menu cannot be created");
    popup.creation = S_OK;
    expect_fault(nullptr, hresult_of(91), "no button");
    const FailingObject bad(1);
    expect_fault(bad.get(), FailingObject::kFailure, "the button's window cannot be read");
  }
  for (const auto& [member, fault] : {std::pair{L"AddItem", "the menu refuses an entry"},
                                      std::pair{L"ExecuteFromWindow", "the menu cannot be shown"}}) {
    const host::ScriptedPopup popup;
    popup_ = &popup;
    refuse(popup, member);
    expect_fault(button.get(), FailingObject::kFailure, fault);
  }
  const host::ScriptedPopup popup(host::text_value(L"autre"));
  popup_ = &popup;
  expect_fault(button.get(), hresult_of(13), "the menu answers no number");
}

const MenuCase kMenus[] = {
    {L"OpenPopupMenu_CttInterv",
     [](IDispatch*& button, IndMenuPop& answer) {
       return contracts()->OpenPopupMenu_CttInterv(&button, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                                   &answer);
     }},
    {L"OpenPopupMenu_CttSite",
     [](IDispatch*& button, IndMenuPop& answer) {
       return contracts()->OpenPopupMenu_CttSite(&button, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                                 VARIANT_TRUE, &answer);
     }},
};

INSTANTIATE_TEST_SUITE_P(Methods, AtomicityOfMenus, ::testing::ValuesIn(kMenus),
                         [](const auto& tested) { return host::utf8(tested.param.method); });

/// The translation's members after a fault of the call `n`: new before it, the host's own from there on.
class AtomicityOfTranslation : public ::testing::TestWithParam<std::size_t> {
 protected:
  void expect_members_before(const std::vector<std::wstring>& texts) {
    std::size_t fetched = 0;
    const auto fresh = host::expected_texts(L"nouveau ");
    for (std::size_t i = 0; i < host::kMembers; ++i) {
      if (host::translated_members()[i].identifier != 0) ++fetched;
      EXPECT_EQ(fetched < GetParam() ? fresh[i] : old_[i], texts[i]) << i;
    }
  }

  host::TranslationHost host_;
  ComPtr<_ClsDLLTrad> translation_ = host::create<_ClsDLLTrad>(L"ClsDLLTrad");
  std::vector<std::wstring> old_;
  Text name_{L"TestHote"};
};

TEST_P(AtomicityOfTranslation, AFailingCall_KeepsTheMembersFetchedBeforeIt) {
  ASSERT_EQ(S_OK, translation_->DLL_InitialisationTrad(name_.in_out()));
  for (const bool reload : {false, true}) {
    if (reload && GetParam() > host::kReloadedFetches) break;
    host_.fails_at = 0;
    host::assign_texts(translation_.get(), L"ancien ");
    old_ = host::texts_of(translation_.get());
    host_.prefix = L"nouveau ";
    host_.fails_at = host_.requests.size() + GetParam();
    EXPECT_EQ(host::TranslationHost::kFailure,
              reload ? translation_->InitConstTrad() : translation_->DLL_InitialisationTrad(name_.in_out()));
    expect_members_before(host::texts_of(translation_.get()));
    EXPECT_EQ(L"TestHote", name_.str());
    if (!HasFailure()) {
      report(L"ClsDLLTrad", reload ? L"InitConstTrad" : L"DLL_InitialisationTrad",
             "the link fails at call " + std::to_string(GetParam()), "of the called object", true);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Calls, AtomicityOfTranslation,
                         ::testing::Values(std::size_t{1}, std::size_t{2}, std::size_t{20},
                                           host::kReloadedFetches, host::kFetches));

}  // namespace
}  // namespace atomicity
