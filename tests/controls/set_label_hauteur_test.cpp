// Outil.SetLabelHauteur on a scripted label: which properties are used, in which order, with which values.
#include "controls/scripted_control.h"
#include "support/arguments.h"

namespace {

using host::is_fault;
using host::is_refusal;
using host::Log;
using host::missing;
using host::part;
using host::Text;
using host::Variant;

class SetLabelHauteur : public ::testing::Test {
 protected:
  SetLabelHauteur() {
    add_property(label_, L"Width", Variant(1800L));
    add_property(label_, L"Caption", host::text_value(L"Ancien"));
    add_property(label_, L"Height", Variant(255L));
    add_property(label_, L"WordWrap", Variant(false));
    add_property(label_, L"AutoSize", Variant(false));
    add_property(label_, L"ForeColor", Variant(255L));
    add_property(label_, L"Font", host::object_value(font_.get()));
    add_property(font_, L"Bold", Variant(false));
  }

  HRESULT fit(const Variant& width = missing(), const Variant& colour = missing(),
              const Variant& bold = missing()) {
    return tools_->SetLabelHauteur(label_.get(), Text(L"Libellé"), width.get(), colour.get(), bold.get());
  }

  const host::ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const host::ComPtr<host::FakeObject> label_ = host::FakeObject::make();
  const host::ComPtr<host::FakeObject> font_ = host::FakeObject::make();
  // What a call with the width 1500 alone does.
  const Log fitting_{L"put Caption BSTR \"\"",  L"put Height I4 0",        L"put Width I4 1500",
                     L"put WordWrap BOOL true", L"put AutoSize BOOL true", L"put Caption BSTR \"Libellé\""};
};

TEST_F(SetLabelHauteur, WithAWidth_EmptiesFlattensWidensWrapsAndOnlyThenSetsTheText) {
  ASSERT_EQ(S_OK, fit(Variant(1500L)));
  EXPECT_EQ(fitting_, label_->log);
}

TEST_F(SetLabelHauteur, WithoutWidth_ReadsTheLabelsWidthFirstAndKeepsIt) {
  ASSERT_EQ(S_OK, fit());
  Log expected = fitting_;
  expected[2] = L"put Width I4 1800";
  expected.insert(expected.begin(), L"get Width");
  EXPECT_EQ(expected, label_->log);
}

TEST_F(SetLabelHauteur, WithoutColourAndBoldness_LeavesBothUnchanged) {
  ASSERT_EQ(S_OK, fit(Variant(1500L)));
  for (const auto& use : label_->log) EXPECT_EQ(std::wstring::npos, use.find(L"Font")) << host::utf8(use);
  EXPECT_EQ(Log{}, font_->log);
  Variant colour;
  ASSERT_EQ(S_OK, host::get_property(label_.get(), L"ForeColor", colour.receive()));
  EXPECT_EQ(255, colour.get().lVal);
}

TEST_F(SetLabelHauteur, WithColourAndBoldness_SetsThemLastInThatOrder) {
  ASSERT_EQ(S_OK, fit(Variant(1500L), Variant(0x808080L), Variant(true)));
  Log expected = fitting_;
  expected.insert(expected.end(), {L"put ForeColor I4 8421504", L"get Font"});
  EXPECT_EQ(expected, label_->log);
  EXPECT_EQ(Log{L"put Bold BOOL true"}, font_->log);
}

TEST_F(SetLabelHauteur, WithColourAlone_LeavesTheFontAlone) {
  ASSERT_EQ(S_OK, fit(Variant(1500L), Variant(0L)));
  EXPECT_EQ(L"put ForeColor I4 0", label_->log.back());
  EXPECT_EQ(Log{}, font_->log);
}

TEST_F(SetLabelHauteur, WithBoldnessAlone_LeavesTheColourAlone) {
  ASSERT_EQ(S_OK, fit(Variant(1500L), missing(), Variant(false)));
  Log expected = fitting_;
  expected.push_back(L"get Font");
  EXPECT_EQ(expected, label_->log);
  EXPECT_EQ(Log{L"put Bold BOOL false"}, font_->log);
}

TEST_F(SetLabelHauteur, ConvertsTheWidthToAWholeNumberHalvesToEven) {
  ASSERT_EQ(S_OK, fit(Variant(short{90})));
  EXPECT_EQ(L"put Width I4 90", label_->log.at(2));
  ASSERT_EQ(S_OK, fit(Variant(1500.5)));
  EXPECT_EQ(L"put Width I4 1500", label_->log.at(8));
  ASSERT_EQ(S_OK, fit(Variant(1501.5)));
  EXPECT_EQ(L"put Width I4 1502", label_->log.at(14));
  ASSERT_EQ(S_OK, fit(host::text_value(L"1350")));
  EXPECT_EQ(L"put Width I4 1350", label_->log.at(20));
}

TEST_F(SetLabelHauteur, TakesAWidthBehindAReference) {
  long width = 1500;
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_I4;
  reference.plVal = &width;
  ASSERT_EQ(S_OK, tools_->SetLabelHauteur(label_.get(), Text(L"Libellé"), reference, missing().get(),
                                          missing().get()));
  EXPECT_EQ(fitting_, label_->log);
}

TEST_F(SetLabelHauteur, EmptyArgumentsAreGivenNotMissing) {
  ASSERT_EQ(S_OK, fit(Variant(), Variant(), Variant()));
  EXPECT_EQ(L"put Caption BSTR \"\"", label_->log.at(0));  // the width was not read
  EXPECT_EQ(L"put Width I4 0", label_->log.at(2));
  EXPECT_EQ(L"put ForeColor I4 0", label_->log.at(6));
  EXPECT_EQ(Log{L"put Bold BOOL false"}, font_->log);
}

TEST_F(SetLabelHauteur, ConvertsColourAndBoldness) {
  ASSERT_EQ(S_OK, fit(Variant(1500L), Variant(16711680.0), Variant(1L)));
  EXPECT_EQ(L"put ForeColor I4 16711680", label_->log.at(6));
  EXPECT_EQ(Log{L"put Bold BOOL true"}, font_->log);
}

TEST_F(SetLabelHauteur, WidthThatIsNoNumber_FailsBeforeAnythingIsUsed) {
  EXPECT_TRUE(is_fault(fit(host::null_value()), 94, L"Outil"));
  EXPECT_TRUE(is_fault(fit(host::text_value(L"large")), 13, L"Outil"));
  EXPECT_TRUE(is_fault(fit(Variant(3e9)), 6, L"Outil"));
  EXPECT_EQ(Log{}, label_->log);
}

TEST_F(SetLabelHauteur, ColourOrBoldnessThatIsNone_FailsAfterTheFitting) {
  EXPECT_TRUE(is_fault(fit(Variant(1500L), host::null_value()), 94, L"Outil"));
  EXPECT_EQ(fitting_, label_->log);
  label_->log.clear();
  EXPECT_TRUE(is_fault(fit(Variant(1500L), missing(), host::text_value(L"gras")), 13, L"Outil"));
  EXPECT_EQ(fitting_, part(label_->log, 0, 6));
  EXPECT_EQ(Log{}, font_->log);
}

/// A property whose put fails, and the count of uses up to it.
using FailingPut = std::pair<const wchar_t*, std::size_t>;

class SetLabelHauteurFailure : public SetLabelHauteur, public ::testing::WithParamInterface<FailingPut> {};

TEST_P(SetLabelHauteurFailure, AFailingPropertyStopsThereWithItsError) {
  const auto& [name, count] = GetParam();
  refuse_put(label_, name);
  EXPECT_TRUE(is_refusal(fit(Variant(1500L), Variant(0L), Variant(true))));
  ASSERT_EQ(count, label_->log.size());
  EXPECT_EQ(std::wstring(L"put ") + name, label_->log.back());
  EXPECT_EQ(Log{}, font_->log);
}

INSTANTIATE_TEST_SUITE_P(Properties, SetLabelHauteurFailure,
                         ::testing::Values(FailingPut{L"Height", 2}, FailingPut{L"Width", 3},
                                           FailingPut{L"WordWrap", 4}, FailingPut{L"AutoSize", 5},
                                           FailingPut{L"ForeColor", 7}),
                         [](const auto& property) { return host::utf8(property.param.first); });

TEST_F(SetLabelHauteur, AFailingCaptionStopsAtTheFirstStep) {
  refuse_put(label_, L"Caption");
  EXPECT_TRUE(is_refusal(fit()));
  EXPECT_EQ((Log{L"get Width", L"put Caption"}), label_->log);
}

TEST_F(SetLabelHauteur, AWidthThatCannotBeReadStopsBeforeTheFirstStep) {
  refuse_get(label_, L"Width");
  EXPECT_TRUE(is_refusal(fit()));
  EXPECT_EQ(Log{L"get Width"}, label_->log);
}

TEST_F(SetLabelHauteur, AFailingFontLeavesWhatWasSet) {
  refuse_put(font_, L"Bold");
  EXPECT_TRUE(is_refusal(fit(Variant(1500L), Variant(128L), Variant(true))));
  EXPECT_EQ((Log{L"put ForeColor I4 128", L"get Font"}), part(label_->log, 6, 2));
}

TEST_F(SetLabelHauteur, ALabelWithoutFontObjectFails) {
  add_property(label_, L"Font", host::object_value(nullptr));
  EXPECT_TRUE(is_fault(fit(Variant(1500L), missing(), Variant(true)), 91, L"Outil"));
  add_property(label_, L"Font", host::text_value(L"Arial"));
  EXPECT_TRUE(is_fault(fit(Variant(1500L), missing(), Variant(true)), 424, L"Outil"));
}

TEST_F(SetLabelHauteur, ALabelWithoutThePropertyFails) {
  const auto bare = host::FakeObject::make();
  EXPECT_TRUE(is_fault(
      tools_->SetLabelHauteur(bare.get(), Text(L"x"), Variant(1L).get(), missing().get(), missing().get()),
      438, L"Outil"));
}

TEST_F(SetLabelHauteur, NoLabelFails) {
  EXPECT_TRUE(is_fault(
      tools_->SetLabelHauteur(nullptr, Text(L"x"), missing().get(), missing().get(), missing().get()), 91,
      L"Outil"));
}

TEST_F(SetLabelHauteur, ANullTextIsEmpty) {
  ASSERT_EQ(S_OK, tools_->SetLabelHauteur(label_.get(), nullptr, Variant(1500L).get(), missing().get(),
                                          missing().get()));
  EXPECT_EQ(L"put Caption BSTR \"\"", label_->log.back());
}

TEST_F(SetLabelHauteur, KeepsNoReference) {
  ASSERT_EQ(S_OK, fit(missing(), Variant(0L), Variant(true)));
  EXPECT_EQ(1, label_->references());
  EXPECT_EQ(2, font_->references());  // the test's and the label's
}

TEST_F(SetLabelHauteur, AnswersALateBoundCall) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetLabelHauteur",
                             host::arguments(host::object_value(label_.get()), host::text_value(L"Libellé"),
                                             Variant(1500L), Variant(0L), Variant(true)),
                             nullptr));
  EXPECT_EQ(fitting_, part(label_->log, 0, 6));
  EXPECT_EQ(L"put ForeColor I4 0", label_->log.at(6));
  EXPECT_EQ(Log{L"put Bold BOOL true"}, font_->log);
}

TEST_F(SetLabelHauteur, AnswersALateBoundCallWithoutTheOptionalArguments) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetLabelHauteur",
                             host::arguments(host::object_value(label_.get()), host::text_value(L"Libellé")),
                             nullptr));
  EXPECT_EQ(7U, label_->log.size());
  EXPECT_EQ(L"put Width I4 1800", label_->log.at(3));
}

TEST_F(SetLabelHauteur, AnswersALateBoundCallWithAnArgumentLeftOutInBetween) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetLabelHauteur",
                             host::arguments(host::object_value(label_.get()), host::text_value(L"Libellé"),
                                             missing(), missing(), Variant(true)),
                             nullptr));
  EXPECT_EQ(8U, label_->log.size());
  EXPECT_EQ(Log{L"put Bold BOOL true"}, font_->log);
}

TEST_F(SetLabelHauteur, AnswersALateBoundCallWithAScriptsVariables) {
  Variant label = host::object_value(label_.get());
  Variant text = host::text_value(L"Libellé");
  Variant width(short{1500});
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetLabelHauteur",
                             host::arguments(host::by_reference(label.get()), host::by_reference(text.get()),
                                             host::by_reference(width.get())),
                             nullptr));
  EXPECT_EQ(fitting_, label_->log);
}

TEST_F(SetLabelHauteur, ALateBoundCallCarriesTheLabelsError) {
  refuse_put(label_, L"AutoSize");
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION,
            host::call(tools_.get(), L"SetLabelHauteur",
                       host::arguments(host::object_value(label_.get()), host::text_value(L"Libellé")),
                       nullptr, &exception));
  EXPECT_EQ(host::kRefusal, exception.scode);
  EXPECT_EQ(L"Propriété protégée", host::get(exception.bstrDescription));
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

}  // namespace
