// Outil.CheckFmtNum: the value of a host's entry control, checked by the control's own format.
#include "support/fake_object.h"
#include "tools/tools_fixture.h"

namespace {

using host::FakeObject;
using host::Text;
using host::Variant;

constexpr short kText = 0, kNumber = 1, kDate = 2;

class CheckFmtNum : public host::ToolsTest {
 protected:
  CheckFmtNum() {
    control_->property(L"TypeChamp", Variant(kNumber));
    control_->property(L"Valeur", host::text_value(L"12,5"));
    control_->property(L"Format", host::text_value(L"N;3.1;>0;<520"));
  }

  HRESULT run(VARIANT* value) {
    IDispatch* control = control_.get();
    return tools_->CheckFmtNum(&control, value, &result_);
  }
  bool accepts(VARIANT* value = nullptr) {
    result_ = 77;
    EXPECT_EQ(S_OK, run(value));
    return result_ == VARIANT_TRUE;
  }
  bool accepts(Variant value) { return accepts(&value.get()); }

  host::ComPtr<FakeObject> control_ = FakeObject::make();
  VARIANT_BOOL result_ = 77;
};

TEST_F(CheckFmtNum, IsFalseForAControlThatIsNotNumericWhateverTheValue) {
  for (const short type : {kText, kDate, short{3}, short{6}, short{-1}}) {
    control_->property(L"TypeChamp", Variant(type));
    EXPECT_FALSE(accepts(Variant(1L))) << type;
    EXPECT_FALSE(accepts()) << type;
    EXPECT_EQ(VARIANT_FALSE, result_) << type;
  }
}

TEST_F(CheckFmtNum, IsFalseForATypeOfFieldThatIsNoNumber) {
  Variant types[] = {host::text_value(L"T"), host::null_value(), Variant(1.5)};
  for (Variant& type : types) {
    control_->property(L"TypeChamp", std::move(type));
    Variant value = host::text_value(L"5");
    EXPECT_FALSE(accepts(&value.get()));
    ASSERT_EQ(VT_BSTR, value.get().vt);
  }
}

TEST_F(CheckFmtNum, IsTrueForANumberTooSmallToTellFromZero) {
  control_->property(L"Format", host::text_value(L"N;3.1;>-1;<1"));
  for (const wchar_t* text : {L"1e-400", L"1e-99999999999", L"0,00001e-323"}) {
    Variant value = host::text_value(text);
    EXPECT_TRUE(accepts(&value.get())) << host::utf8(text);
    ASSERT_EQ(VT_R8, value.get().vt);
    EXPECT_EQ(0, value.get().dblVal);
  }
}

TEST_F(CheckFmtNum, FailsForANumberTooLargeForADouble) {
  for (const wchar_t* text : {L"1e400", L"1e+400", L"1e99999999999", L"1000000e303"}) {
    Variant value = host::text_value(text);
    EXPECT_TRUE(host::is_fault(run(&value.get()), 6, L"Outil")) << host::utf8(text);
    EXPECT_EQ(VT_BSTR, value.get().vt);
  }
}

TEST_F(CheckFmtNum, ReadsNothingElseOfAControlThatIsNotNumeric) {
  control_->property(L"TypeChamp", Variant(kText));
  Variant value = host::text_value(L"5");
  EXPECT_FALSE(accepts(&value.get()));
  EXPECT_EQ((std::vector<std::wstring>{L"get TypeChamp"}), control_->log);
  ASSERT_EQ(VT_BSTR, value.get().vt);
  EXPECT_EQ(L"5", host::get(value.get().bstrVal));
}

TEST_F(CheckFmtNum, ChecksTheControlsValueWhenNoneIsGiven) {
  EXPECT_TRUE(accepts());
  control_->property(L"Valeur", host::text_value(L"521"));
  EXPECT_FALSE(accepts());
}

TEST_F(CheckFmtNum, ChecksTheControlsValueForAMissingVariantAndWritesItBack) {
  Variant value = host::missing();
  EXPECT_TRUE(accepts(&value.get()));
  ASSERT_EQ(VT_R8, value.get().vt);
  EXPECT_EQ(12.5, value.get().dblVal);
}

TEST_F(CheckFmtNum, ChecksTheGivenValueInsteadOfTheControls) {
  EXPECT_FALSE(accepts(Variant(521L)));
  control_->property(L"Valeur", host::text_value(L"521"));
  EXPECT_TRUE(accepts(Variant(519.4)));
}

TEST_F(CheckFmtNum, ReadsTypeThenValueThenFormat) {
  accepts();
  EXPECT_EQ((std::vector<std::wstring>{L"get TypeChamp", L"get Valeur", L"get Format"}), control_->log);
}

TEST_F(CheckFmtNum, DoesNotReadTheControlsValueWhenOneIsGiven) {
  accepts(Variant(5L));
  EXPECT_EQ((std::vector<std::wstring>{L"get TypeChamp", L"get Format"}), control_->log);
}

TEST_F(CheckFmtNum, ReadsTextsWithEitherDecimalSeparator) {
  const struct {
    const wchar_t* text;
    double number;
  } cases[] = {{L"519,4", 519.4}, {L"519.4", 519.4}, {L"0", 0}, {L"", 0}, {L" 12 ", 12}};
  for (const auto& [text, number] : cases) {
    Variant value = host::text_value(text);
    EXPECT_TRUE(accepts(&value.get())) << host::utf8(text);
    ASSERT_EQ(VT_R8, value.get().vt);
    EXPECT_EQ(number, value.get().dblVal);
  }
}

TEST_F(CheckFmtNum, WritesTheNumberBackEvenWhenItIsRejected) {
  Variant value = host::text_value(L"520,1");
  EXPECT_FALSE(accepts(&value.get()));
  ASSERT_EQ(VT_R8, value.get().vt);
  EXPECT_EQ(520.1, value.get().dblVal);
}

TEST_F(CheckFmtNum, WritesTheNumberBackIntoTheVariableBehindAReference) {
  Variant variable = host::text_value(L"7,5");
  Variant value = host::by_reference(variable.get());
  EXPECT_TRUE(accepts(&value.get()));
  ASSERT_EQ(VT_R8, variable.get().vt);
  EXPECT_EQ(7.5, variable.get().dblVal);
}

TEST_F(CheckFmtNum, LeavesTheControl) {
  accepts();
  EXPECT_EQ(L"12,5", host::get(control_->value(L"Valeur").bstrVal));
  EXPECT_EQ(1, control_->references());
}

TEST_F(CheckFmtNum, FailsForAValueThatIsNoNumberAndLeavesIt) {
  Variant value = host::text_value(L"douze");
  EXPECT_TRUE(host::is_fault(run(&value.get()), 13, L"Outil"));
  ASSERT_EQ(VT_BSTR, value.get().vt);
  EXPECT_EQ(VARIANT_FALSE, result_);
  Variant null = host::null_value();
  EXPECT_TRUE(host::is_fault(run(&null.get()), 94, L"Outil"));
}

TEST_F(CheckFmtNum, FailsForAControlsValueThatIsNoNumber) {
  control_->property(L"Valeur", host::text_value(L"12x"));
  EXPECT_TRUE(host::is_fault(run(nullptr), 13, L"Outil"));
}

TEST_F(CheckFmtNum, PassesTheFaultOfTheControlOn) {
  for (const wchar_t* name : {L"TypeChamp", L"Valeur", L"Format"}) {
    const auto kept = std::exchange(control_, FakeObject::make());
    for (const wchar_t* other : {L"TypeChamp", L"Valeur", L"Format"}) {
      if (std::wstring_view(name) == other) {
        control_->on_get(name, [](const auto&) -> Variant {
          throw FakeObject::Error{static_cast<HRESULT>(0x800A01A8), L"Hote.Controle", L"Saisie fermée"};
        });
      } else {
        control_->property(other, Variant(kNumber));
      }
    }
    EXPECT_EQ(static_cast<HRESULT>(0x800A01A8), run(nullptr)) << host::utf8(name);
    EXPECT_EQ(L"Saisie fermée", host::take_error().description) << host::utf8(name);
  }
}

TEST_F(CheckFmtNum, FailsForAControlWithoutTheMember) {
  control_ = FakeObject::make();
  EXPECT_TRUE(host::is_fault(run(nullptr), 438, L"Outil"));
}

TEST_F(CheckFmtNum, HasWrittenTheNumberBackWhenTheFormatFails) {
  control_->property(L"Format", host::text_value(L"-1.0"));
  Variant value = host::text_value(L"7,5");
  EXPECT_TRUE(host::is_fault(run(&value.get()), 5, L"Outil"));
  EXPECT_EQ(VT_R8, value.get().vt);
}

TEST_F(CheckFmtNum, FailsForADigitCountOfTheFormatBeyond16Bits) {
  control_->property(L"Format", host::text_value(L"32768.0"));
  EXPECT_TRUE(host::is_fault(run(nullptr), 6, L"Outil"));
}

TEST_F(CheckFmtNum, FailsWithoutControl) {
  IDispatch* none = nullptr;
  EXPECT_TRUE(host::is_fault(tools_->CheckFmtNum(&none, nullptr, &result_), 91, L"Outil"));
}

TEST_F(CheckFmtNum, AnswersALateBoundCallWithoutAValue) {
  Variant result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"CheckFmtNum",
                             host::arguments(host::object_value(control_.get())), result.receive()));
  ASSERT_EQ(VT_BOOL, result.get().vt);
  EXPECT_EQ(VARIANT_TRUE, result.get().boolVal);
}

TEST_F(CheckFmtNum, AnswersALateBoundCallAndWritesAVariableBack) {
  Variant result, value = host::text_value(L"521");
  Variant control = host::object_value(control_.get());
  ASSERT_EQ(S_OK,
            host::call(tools_.get(), L"CheckFmtNum",
                       host::arguments(host::by_reference(control.get()), host::by_reference(value.get())),
                       result.receive()));
  EXPECT_EQ(VARIANT_FALSE, result.get().boolVal);
  ASSERT_EQ(VT_R8, value.get().vt);
  EXPECT_EQ(521, value.get().dblVal);
}

TEST_F(CheckFmtNum, RefusesNullPointers) {
  IDispatch* control = control_.get();
  EXPECT_EQ(E_POINTER, tools_->CheckFmtNum(nullptr, nullptr, &result_));
  EXPECT_EQ(E_POINTER, tools_->CheckFmtNum(&control, nullptr, nullptr));
}

}  // namespace
