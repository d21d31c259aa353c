// Arguments by reference: variables of the exact type, VARIANT variables as scripts pass them, variables of
// another type, and values.
#include "frame/invocation.h"

namespace {

using host::by_reference;
using host::ComPtr;
using host::Invocation;
using host::Outcome;
using host::Text;
using host::text_value;
using host::Variant;

/// GetFmtSaisDureeUnit(sUnit, iValtoCmp): an unknown unit becomes "J", a value above 3642 days becomes 3642.
class References : public ::testing::Test {
 protected:
  Outcome format(const Variant& unit, const Variant& value) {
    return Invocation(general_.get(), L"GetFmtSaisDureeUnit").pass(unit).pass(value).run();
  }

  ComPtr<IDispatch> general_ = host::create_dispatch(L"General");
  Variant days_ = text_value(L"J");
  Variant one_ = Variant(short{1});
};

TEST_F(References, Integer_ExactlyTyped_IsChangedInPlace) {
  short value = 5000;
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(3642, value);
}

TEST_F(References, Integer_ExactlyTyped_UnchangedByTheMethod_KeepsItsValue) {
  short value = -7;
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(-7, value);
}

TEST_F(References, Integer_InAVariableOfThatType_IsChanged) {
  Variant value(short{5000});
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(VT_I2, value.get().vt);
  EXPECT_EQ(3642, value.get().iVal);
}

TEST_F(References, Integer_InAVariableHoldingALong_IsConvertedAndWrittenBack) {
  Variant value(5000L);
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(3642, velmosav::to_long(value.get()));
}

TEST_F(References, Integer_InAVariableHoldingAText_IsConvertedAndWrittenBack) {
  Variant value = text_value(L"5000");
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(3642, velmosav::to_long(value.get()));
}

TEST_F(References, Integer_InAVariableHoldingAText_UnchangedByTheMethod_StaysThatText) {
  Variant value = text_value(L"012");
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  ASSERT_EQ(VT_BSTR, value.get().vt);
  EXPECT_EQ(L"012", host::get(value.get().bstrVal));
}

TEST_F(References, Integer_InAVariableHoldingADouble_UnchangedByTheMethod_KeepsItsFraction) {
  Variant value(12.25);
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(VT_R8, value.get().vt);
  EXPECT_EQ(12.25, value.get().dblVal);
}

TEST_F(References, Integer_InAnEmptyVariable_UnchangedByTheMethod_StaysEmpty) {
  Variant value;
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(VT_EMPTY, value.get().vt);
}

TEST_F(References, Integer_InAVariableOfAVariable_IsChanged) {
  Variant value(5000L);
  Variant inner = by_reference(value);
  ASSERT_EQ(S_OK, format(days_, by_reference(inner)).code);
  EXPECT_EQ(3642, velmosav::to_long(value.get()));
}

TEST_F(References, Integer_ToALong_IsConvertedAndWrittenBack) {
  long value = 5000;
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(3642, value);
}

TEST_F(References, Integer_ToADouble_IsConvertedAndWrittenBack) {
  double value = 5000.25;
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(3642.0, value);
}

TEST_F(References, Integer_ToADouble_UnchangedByTheMethod_KeepsItsFraction) {
  double value = 12.25;
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(12.25, value);
}

TEST_F(References, Integer_ToAText_IsConvertedAndWrittenBack) {
  Text value = L"5000";
  ASSERT_EQ(S_OK, format(days_, by_reference(value)).code);
  EXPECT_EQ(L"3642", value.str());
}

TEST_F(References, Integer_ToACurrency_IsConvertedAndWrittenBackWhole) {
  CURRENCY value{};
  value.int64 = 50000000;  // 5 000, in ten-thousandths
  ASSERT_EQ(S_OK, format(days_, by_reference(VT_CY, &value)).code);
  EXPECT_EQ(36420000, value.int64);
}

TEST_F(References, Integer_ToADate_IsConvertedAndWrittenBackWhole) {
  DATE value = 5000;
  ASSERT_EQ(S_OK, format(days_, by_reference(VT_DATE, &value)).code);
  EXPECT_EQ(3642.0, value);
}

TEST_F(References, Integer_ToASignedByte_WritesThatByteOnly) {
  signed char value[2] = {77, 11};
  Text unit = L"A";  // years: capped at 10
  ASSERT_EQ(S_OK, format(by_reference(unit), by_reference(VT_I1, value)).code);
  EXPECT_EQ(10, value[0]);
  EXPECT_EQ(11, value[1]);
}

TEST_F(References, Integer_ToAnUnsignedInteger_WritesThatIntegerOnly) {
  unsigned short value[2] = {5000, 123};
  ASSERT_EQ(S_OK, format(days_, by_reference(VT_UI2, value)).code);
  EXPECT_EQ(3642, value[0]);
  EXPECT_EQ(123, value[1]);
}

TEST_F(References, Integer_ToA64BitInteger_IsWrittenWhole) {
  long long value = 5000;
  ASSERT_EQ(S_OK, format(days_, by_reference(VT_I8, &value)).code);
  EXPECT_EQ(3642, value);
}

TEST_F(References, Integer_InAVariableOutOfRange_IsRefusedWithItsPlace) {
  Variant value(40000L);
  const Outcome outcome = format(days_, by_reference(value));
  EXPECT_EQ(DISP_E_OVERFLOW, outcome.code);
  EXPECT_EQ(0u, outcome.bad_argument);
}

TEST_F(References, Integer_InAVariableHoldingAWord_IsRefusedAndKept) {
  Variant value = text_value(L"dix");
  EXPECT_EQ(DISP_E_TYPEMISMATCH, format(days_, by_reference(value)).code);
  EXPECT_EQ(L"dix", host::get(value.get().bstrVal));
}

TEST_F(References, Integer_ByValue_IsTaken) {
  EXPECT_EQ(L"N;4.0;>0;<3642;B", format(days_, Variant(short{5000})).text());
}

TEST_F(References, Integer_ByValue_TheCallersArgumentStays) {
  Invocation call(general_.get(), L"GetFmtSaisDureeUnit");
  ASSERT_EQ(S_OK, call.pass(days_).pass(Variant(short{5000})).run().code);
  EXPECT_EQ(5000, call.argument(1).iVal);
}

TEST_F(References, Integer_ByValueOfAnotherType_TheCallersArgumentStays) {
  Invocation call(general_.get(), L"GetFmtSaisDureeUnit");
  ASSERT_EQ(S_OK, call.pass(days_).pass(Variant(5000L)).run().code);
  EXPECT_EQ(VT_I4, call.argument(1).vt);
  EXPECT_EQ(5000, call.argument(1).lVal);
}

TEST_F(References, Text_ExactlyTyped_IsChangedInPlace) {
  Text unit = L"X";
  ASSERT_EQ(S_OK, format(by_reference(unit), one_).code);
  EXPECT_EQ(L"J", unit.str());
}

TEST_F(References, Text_NullText_IsTheEmptyText) {
  Text unit;
  ASSERT_EQ(S_OK, format(by_reference(unit), one_).code);
  EXPECT_EQ(L"J", unit.str());
}

TEST_F(References, Text_InAVariable_IsChanged) {
  Variant unit = text_value(L"X");
  ASSERT_EQ(S_OK, format(by_reference(unit), one_).code);
  EXPECT_EQ(L"J", host::get(unit.get().bstrVal));
}

TEST_F(References, Text_InAVariableHoldingANumber_IsConvertedAndWrittenBack) {
  Variant unit(12L);
  ASSERT_EQ(S_OK, format(by_reference(unit), one_).code);
  ASSERT_EQ(VT_BSTR, unit.get().vt);
  EXPECT_EQ(L"J", host::get(unit.get().bstrVal));
}

TEST_F(References, Text_InAnEmptyVariable_IsWrittenBack) {
  Variant unit;
  ASSERT_EQ(S_OK, format(by_reference(unit), one_).code);
  ASSERT_EQ(VT_BSTR, unit.get().vt);
  EXPECT_EQ(L"J", host::get(unit.get().bstrVal));
}

TEST_F(References, Text_ToALong_ThatCannotHoldTheNewText_KeepsItsValue) {
  long unit = 12;
  format(by_reference(unit), one_);
  EXPECT_EQ(12, unit);
}

TEST_F(References, Text_ToALong_ThatCannotHoldTheNewText_IsATypeFault) {
  long unit = 12;
  const Outcome outcome = format(by_reference(unit), one_);
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D), outcome.scode);
}

TEST_F(References, Text_ToALong_ThatCannotHoldTheNewText_OtherVariablesAreWrittenBack) {
  long unit = 12, value = 5000;
  format(by_reference(unit), by_reference(value));
  EXPECT_EQ(3642, value);
}

TEST_F(References, Text_ByValue_TheCallersArgumentStays) {
  Variant unit = text_value(L"X");
  const BSTR given = unit.get().bstrVal;
  Invocation call(general_.get(), L"GetFmtSaisDureeUnit");
  ASSERT_EQ(S_OK, call.pass(unit).pass(one_).run().code);
  EXPECT_EQ(given, call.argument(0).bstrVal);
  if (call.argument(0).bstrVal != given) unit.get() = call.argument(0);  // the text given is gone
}

}  // namespace
