// Public variables by name: reading, writing with conversion, and that each instance has its own.
#include "frame/invocation.h"

namespace {

using host::ComPtr;
using host::create_dispatch;
using host::Invocation;
using host::Outcome;
using host::Text;
using host::Variant;

Outcome read(IDispatch* object, const wchar_t* name) {
  return Invocation(object, name).flags(DISPATCH_PROPERTYGET).run();
}

Outcome write(IDispatch* object, const wchar_t* name, const Variant& value,
              WORD flags = DISPATCH_PROPERTYPUT) {
  return Invocation(object, name).flags(flags).pass_named(DISPID_PROPERTYPUT, value.get()).run();
}

class Properties : public ::testing::Test {
 protected:
  ComPtr<IDispatch> general_ = create_dispatch(L"General");
};

TEST_F(Properties, Text_Read_GivesItsValue) {
  EXPECT_EQ(L"Contrat", read(general_.get(), L"c_sProvDoc_Ctt").text());
}

TEST_F(Properties, Text_Written_IsRead) {
  ASSERT_EQ(S_OK, write(general_.get(), L"c_sProvDoc_Ctt", host::text_value(L"Marché à façon")).code);
  EXPECT_EQ(L"Marché à façon", read(general_.get(), L"c_sProvDoc_Ctt").text());
}

TEST_F(Properties, Text_WrittenByReferenceToAVariable_IsRead) {
  Variant variable = host::text_value(L"Marché");
  ASSERT_EQ(S_OK, Invocation(general_.get(), L"c_sProvDoc_Ctt")
                      .flags(DISPATCH_PROPERTYPUT)
                      .pass_named(DISPID_PROPERTYPUT, host::by_reference(variable).get())
                      .run()
                      .code);
  EXPECT_EQ(L"Marché", read(general_.get(), L"c_sProvDoc_Ctt").text());
}

TEST_F(Properties, Text_WrittenWithANumber_TakesTheUsersDecimalSeparator) {
  ASSERT_EQ(S_OK, write(general_.get(), L"PC_UnitDefaut", Variant(3.5)).code);
  EXPECT_EQ(L"3,5", read(general_.get(), L"PC_UnitDefaut").text());
}

TEST_F(Properties, Text_WrittenWithANullCharacter_KeepsItsLength) {
  const std::wstring_view value(L"a\0b", 3);
  ASSERT_EQ(S_OK, write(general_.get(), L"PC_UnitDefaut", host::text_value(value)).code);
  EXPECT_EQ(value, read(general_.get(), L"PC_UnitDefaut").text());
}

TEST_F(Properties, Integer_WrittenWithAText_IsConverted) {
  ASSERT_EQ(S_OK, write(general_.get(), L"PC_RES_BMP_COCHE", host::text_value(L"-42")).code);
  const Outcome outcome = read(general_.get(), L"PC_RES_BMP_COCHE");
  EXPECT_EQ(VT_I2, outcome.result.get().vt);
  EXPECT_EQ(-42, outcome.result.get().iVal);
}

TEST_F(Properties, Integer_WrittenWithAHalf_RoundsToEven) {
  ASSERT_EQ(S_OK, write(general_.get(), L"PC_RES_BMP_COCHE", Variant(2.5)).code);
  EXPECT_EQ(2, read(general_.get(), L"PC_RES_BMP_COCHE").result.get().iVal);
}

TEST_F(Properties, Byte_WrittenWithItsLargestValue_IsRead) {
  ASSERT_EQ(S_OK, write(general_.get(), L"OpCreer", Variant(255L)).code);
  const Outcome outcome = read(general_.get(), L"OpCreer");
  EXPECT_EQ(VT_UI1, outcome.result.get().vt);
  EXPECT_EQ(255, outcome.result.get().bVal);
}

TEST_F(Properties, Byte_WrittenOutOfRange_IsRefused) {
  const Outcome outcome = write(general_.get(), L"OpCreer", Variant(256L));
  EXPECT_EQ(DISP_E_OVERFLOW, outcome.code);
  EXPECT_EQ(0u, outcome.bad_argument);
}

TEST_F(Properties, Byte_WrittenOutOfRange_KeepsItsValue) {
  write(general_.get(), L"OpModifier", Variant(256L));
  EXPECT_EQ(1, read(general_.get(), L"OpModifier").result.get().bVal);
}

TEST_F(Properties, Long_WrittenNegative_IsRead) {
  ASSERT_EQ(S_OK, write(general_.get(), L"vbJaune", Variant(-5L)).code);
  EXPECT_EQ(-5, read(general_.get(), L"vbJaune").result.get().lVal);
}

TEST_F(Properties, Boolean_WrittenWithANumber_BecomesTrue) {
  ASSERT_EQ(S_OK, write(general_.get(), L"G_Module_IndMaj", Variant(3L)).code);
  EXPECT_EQ(VARIANT_TRUE, read(general_.get(), L"G_Module_IndMaj").result.get().boolVal);
}

TEST_F(Properties, AnyType_WrittenWithNull_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, write(general_.get(), L"c_sProvDoc_Ctt", host::null_value()).code);
  EXPECT_EQ(DISP_E_TYPEMISMATCH, write(general_.get(), L"vbJaune", host::null_value()).code);
}

TEST_F(Properties, Integer_WrittenWithAWord_IsRefused) {
  const Outcome outcome = write(general_.get(), L"PC_RES_BMP_COCHE", host::text_value(L"coche"));
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
  EXPECT_EQ(0u, outcome.bad_argument);
}

TEST_F(Properties, Let_WithoutAValue_IsRefused) {
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL,
            Invocation(general_.get(), L"vbJaune").flags(DISPATCH_PROPERTYPUT).run().code);
}

TEST_F(Properties, Let_WithTwoValues_IsRefused) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invocation(general_.get(), L"vbJaune")
                                      .flags(DISPATCH_PROPERTYPUT)
                                      .pass(1.0)
                                      .pass_named(DISPID_PROPERTYPUT, Variant(2.0).get())
                                      .run()
                                      .code);
}

TEST_F(Properties, Let_ByTheFlagsOfAnObjectAssignment_Works) {
  ASSERT_EQ(S_OK, write(general_.get(), L"PC_UnitDefaut", host::text_value(L"U"),
                        DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)
                      .code);
  EXPECT_EQ(L"U", read(general_.get(), L"PC_UnitDefaut").text());
}

TEST_F(Properties, Get_WithAnArgument_IsRefused) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT,
            Invocation(general_.get(), L"vbJaune").flags(DISPATCH_PROPERTYGET).pass(1.0).run().code);
}

TEST_F(Properties, Get_CalledAsMethodOrProperty_IsRead) {
  EXPECT_EQ(L"Contrat", Invocation(general_.get(), L"c_sProvDoc_Ctt")
                            .flags(DISPATCH_METHOD | DISPATCH_PROPERTYGET)
                            .run()
                            .text());
}

TEST_F(Properties, Get_WithoutPlaceForTheResult_Succeeds) {
  EXPECT_EQ(
      S_OK,
      Invocation(general_.get(), L"c_sProvDoc_Ctt").flags(DISPATCH_PROPERTYGET).without_result().run().code);
}

TEST_F(Properties, Get_EarlyBound_NullResult_IsAnAddressFault) {
  const auto general = host::create<_General>(L"General");
  EXPECT_EQ(E_POINTER, general->get_c_sProvDoc_Ctt(nullptr));
  EXPECT_EQ(L"VelmoSAV_DLL14.General", host::take_error().source);
}

TEST_F(Properties, Let_EarlyBound_IsReadByName) {
  const auto general = host::create<_General>(L"General");
  ASSERT_EQ(S_OK, general->put_c_sProvDoc_Ctt(Text(L"Marché")));
  EXPECT_EQ(L"Marché", read(general.get(), L"c_sProvDoc_Ctt").text());
}

TEST(Instances, PublicVariable_OfOneInstance_DoesNotChangeAnother) {
  const auto first = create_dispatch(L"General"), second = create_dispatch(L"General");
  write(first.get(), L"c_sProvDoc_Ctt", host::text_value(L"Marché"));
  EXPECT_EQ(L"Contrat", read(second.get(), L"c_sProvDoc_Ctt").text());
}

TEST(Instances, PublicVariable_OfAReleasedInstance_DoesNotChangeALaterOne) {
  write(create_dispatch(L"General").get(), L"vbJaune", Variant(1L));
  EXPECT_EQ(0xC0FFFF, read(create_dispatch(L"General").get(), L"vbJaune").result.get().lVal);
}

TEST(Instances, PublicVariable_OfTheHostsGeneral_DoesNotChangeThePrivateOneOfContratDoc) {
  const auto general = create_dispatch(L"General"), contracts = create_dispatch(L"ContratDoc");
  write(general.get(), L"c_sUnitDur_Jour", host::text_value(L"Z"));
  // Ten days from the first end on the tenth: only the unit of days counts its first day.
  EXPECT_EQ(L"10/01/25", Invocation(contracts.get(), L"SetDateByDuree")
                             .pass(host::text_value(L"01/01/2025"))
                             .pass(Variant(10L))
                             .pass(host::text_value(L"J"))
                             .run()
                             .text());
}

TEST(Instances, PublicVariable_SetOnTvaRepart_ChangesThatInstanceOnly) {
  const auto changed = create_dispatch(L"TvaRepart"), other = create_dispatch(L"TvaRepart");
  write(changed.get(), L"PC_CodeTVAMultiple", Variant(77L));
  EXPECT_EQ(77, read(changed.get(), L"PC_CodeTVAMultiple").result.get().bVal);
  EXPECT_EQ(99, read(other.get(), L"PC_CodeTVAMultiple").result.get().bVal);
}

}  // namespace
