// Arguments of a late-bound call by value: order, names, defaults, conversion, and what is refused.
#include "frame/invocation.h"

namespace {

using host::ComPtr;
using host::Invocation;
using host::missing;
using host::Outcome;
using host::text_value;
using host::Variant;

constexpr wchar_t kTaxed[] = L"DLL_GetAmountTTCByHT";  // VATRate, AmountHT, optional NumDigitDec = 2

class Arguments : public ::testing::Test {
 protected:
  Invocation taxed() { return Invocation(outil_.get(), kTaxed); }

  ComPtr<IDispatch> outil_ = host::create_dispatch(L"Outil");
};

TEST_F(Arguments, Positional_AreTakenInOrder) {
  EXPECT_EQ(120.0, taxed().pass(20.0).pass(100.0).pass(2.0).run().number());
}

TEST_F(Arguments, Optional_LeftOut_TakesItsDefault) {
  EXPECT_EQ(10.56, taxed().pass(5.5).pass(10.01).run().number());
}

TEST_F(Arguments, Optional_GivenAsMissing_TakesItsDefault) {
  EXPECT_EQ(10.56, taxed().pass(5.5).pass(10.01).pass(missing()).run().number());
}

TEST_F(Arguments, Optional_GivenAsAVariableThatIsMissing_TakesItsDefault) {
  Variant variable = missing();
  EXPECT_EQ(10.56, taxed().pass(5.5).pass(10.01).pass(host::by_reference(variable)).run().number());
}

TEST_F(Arguments, Optional_Given_ReplacesItsDefault) {
  EXPECT_EQ(10.561, taxed().pass(5.5).pass(10.01).pass(3.0).run().number());
}

TEST_F(Arguments, Optional_GivenEmpty_IsZeroAndNotTheDefault) {
  EXPECT_EQ(11.0, taxed().pass(5.5).pass(10.01).pass(Variant()).run().number());
}

TEST_F(Arguments, Named_AreTakenByTheirNames) {
  EXPECT_EQ(120.0, taxed()
                       .pass_named(L"AmountHT", Variant(100.0).get())
                       .pass_named(L"VATRate", Variant(20.0).get())
                       .run()
                       .number());
}

TEST_F(Arguments, Named_AfterPositionalOnes_FillTheRest) {
  EXPECT_EQ(10.561, taxed()
                        .pass(5.5)
                        .pass_named(L"NumDigitDec", Variant(3L).get())
                        .pass_named(L"amountht", Variant(10.01).get())
                        .run()
                        .number());
}

TEST_F(Arguments, Named_OverAPositionalOne_IsRefused) {
  const Outcome outcome = taxed().pass(20.0).pass(100.0).pass_named(L"AmountHT", Variant(50.0).get()).run();
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, outcome.code);
  EXPECT_EQ(0u, outcome.bad_argument);
}

TEST_F(Arguments, Named_OfNoParameter_IsRefused) {
  for (const DISPID place : {3, 12, 99, -2, -700}) {
    const Outcome outcome = taxed().pass(20.0).pass_named(place, Variant(100.0).get()).run();
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, outcome.code) << place;
    EXPECT_EQ(0u, outcome.bad_argument) << place;
  }
}

TEST_F(Arguments, Named_AsTheValueOfALet_OnAMethodWithoutParameters_IsRefused) {
  const auto invoices = host::create_dispatch(L"InvoiceXMLLib");
  EXPECT_TRUE(FAILED(Invocation(invoices.get(), L"InitConstXML")
                         .pass_named(DISPID_PROPERTYPUT, Variant(1.0).get())
                         .run()
                         .code));
}

TEST_F(Arguments, Named_OfAWrongKind_IsRefusedWithItsPlace) {
  const Variant word = text_value(L"cent");
  const Outcome outcome =
      taxed().pass_named(L"VATRate", Variant(20.0).get()).pass_named(L"AmountHT", word.get()).run();
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
  EXPECT_EQ(1u, outcome.bad_argument);
}

TEST_F(Arguments, Required_LeftOut_IsRefused) {
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, taxed().pass(20.0).run().code);
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, taxed().run().code);
}

TEST_F(Arguments, Required_GivenAsMissing_IsRefusedWithItsPlace) {
  const Outcome outcome = taxed().pass(20.0).pass(missing()).pass(3.0).run();
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, outcome.code);
  EXPECT_EQ(1u, outcome.bad_argument);
}

TEST_F(Arguments, TooMany_AreRefused) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, taxed().pass(20.0).pass(100.0).pass(2.0).pass(1.0).run().code);
}

TEST_F(Arguments, TooMany_OfAllParametersMissing_AreRefused) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, taxed().pass(20.0).pass(100.0).pass(missing()).pass(missing()).run().code);
}

TEST_F(Arguments, MoreNamedThanGiven_AreRefused) {
  VARIANT argument = Variant(20.0).detach();
  DISPID names[] = {0, 1};
  DISPPARAMS parameters{&argument, names, 1, 2};
  Variant result;
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, outil_->Invoke(3, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                 &parameters, result.receive(), nullptr, nullptr));
}

TEST_F(Arguments, WrongKind_IsRefusedWithItsPlace) {
  const Outcome outcome = taxed().pass(text_value(L"vingt")).pass(100.0).run();
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
  EXPECT_EQ(1u, outcome.bad_argument);
}

TEST_F(Arguments, WrongKind_LastArgument_HasPlaceZero) {
  EXPECT_EQ(0u, taxed().pass(20.0).pass(text_value(L"cent")).run().bad_argument);
}

TEST_F(Arguments, WrongKind_InAVariable_IsRefusedWithItsPlace) {
  Variant variable = text_value(L"vingt");
  const Outcome outcome = taxed().pass(host::by_reference(variable)).pass(100.0).run();
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
  EXPECT_EQ(1u, outcome.bad_argument);
}

TEST_F(Arguments, WrongKind_WithoutPlaceForTheIndex_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            taxed().pass(text_value(L"vingt")).pass(100.0).without_argument_index().run().code);
}

TEST_F(Arguments, WrongKind_LeavesNoErrorInformation) {
  taxed().pass(text_value(L"vingt")).pass(100.0).run();
  EXPECT_EQ(L"", host::take_error().source);
}

TEST_F(Arguments, Null_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, taxed().pass(host::null_value()).pass(100.0).run().code);
}

TEST_F(Arguments, ObjectForANumber_IsRefused) {
  EXPECT_TRUE(FAILED(taxed().pass(host::object_value(outil_.get())).pass(100.0).run().code));
}

TEST_F(Arguments, OutOfRange_IsRefusedWithItsPlace) {
  const Outcome outcome = taxed().pass(20.0).pass(100.0).pass(Variant(256L)).run();
  EXPECT_EQ(DISP_E_OVERFLOW, outcome.code);
  EXPECT_EQ(0u, outcome.bad_argument);
}

TEST_F(Arguments, Negative_ForAByte_IsRefused) {
  EXPECT_EQ(DISP_E_OVERFLOW, taxed().pass(20.0).pass(100.0).pass(Variant(-1L)).run().code);
}

TEST_F(Arguments, Text_ForANumber_IsReadWithTheUsersDecimalSeparator) {
  EXPECT_EQ(119.6, taxed().pass(text_value(L"19,6")).pass(text_value(L"100")).run().number());
}

TEST_F(Arguments, Number_ForAText_IsWrittenInTheUsersWay) {
  const auto repart = host::create_dispatch(L"TvaRepart");
  EXPECT_EQ(L"5,5@100.00@", Invocation(repart.get(), L"GetStrRepartByCodeTVA").pass(5.5).run().text());
}

TEST_F(Arguments, Long_CrossesWhole) {
  const auto contracts = host::create_dispatch(L"ContratDoc");
  EXPECT_EQ(L"28/12/52", Invocation(contracts.get(), L"SetDateByDuree")
                             .pass(text_value(L"01/01/2025"))
                             .pass(text_value(L"10224"))
                             .pass(text_value(L"J"))
                             .run()
                             .text());
}

TEST_F(Arguments, Object_IsReturned) {
  const Variant address(static_cast<long>(reinterpret_cast<std::intptr_t>(outil_.get())));
  const Outcome outcome = Invocation(outil_.get(), L"ObjFromPtr").pass(address).run();
  ASSERT_EQ(VT_DISPATCH, outcome.result.get().vt);
  EXPECT_EQ(outil_.get(), outcome.result.get().pdispVal);
}

TEST_F(Arguments, Object_Returned_HoldsAReference) {
  const Variant address(static_cast<long>(reinterpret_cast<std::intptr_t>(outil_.get())));
  Outcome outcome = Invocation(outil_.get(), L"ObjFromPtr").pass(address).run();
  outil_->AddRef();
  EXPECT_EQ(2u, outil_->Release());
}

TEST_F(Arguments, Method_AskedAsMethodOrProperty_IsCalled) {
  EXPECT_EQ(120.0,
            taxed().flags(DISPATCH_METHOD | DISPATCH_PROPERTYGET).pass(20.0).pass(100.0).run().number());
}

TEST_F(Arguments, Method_AskedAsProperty_IsNotFound) {
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, taxed().flags(DISPATCH_PROPERTYGET).pass(20.0).pass(100.0).run().code);
}

TEST_F(Arguments, Method_Assigned_IsNotFound) {
  EXPECT_EQ(
      DISP_E_MEMBERNOTFOUND,
      taxed().flags(DISPATCH_PROPERTYPUT).pass_named(DISPID_PROPERTYPUT, Variant(1.0).get()).run().code);
}

TEST_F(Arguments, Property_CalledAsMethod_IsNotFound) {
  const auto article = host::create_dispatch(L"Article");
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invocation(article.get(), L"PC_TARIF_HT").run().code);
}

TEST_F(Arguments, Identifier_OfNoMember_IsNotFound) {
  for (const DISPID id : {0, 22, 1000, 0x60020000, -1, -4}) {
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invocation(outil_.get(), id).run().code) << id;
  }
}

TEST_F(Arguments, ReservedIdentifier_NotNull_IsRefused) {
  DISPPARAMS none{};
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, outil_->Invoke(3, IID_IDispatch, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                    &none, nullptr, nullptr, nullptr));
}

TEST_F(Arguments, NoParameterBlock_IsRefused) {
  EXPECT_TRUE(FAILED(
      outil_->Invoke(3, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr)));
}

TEST_F(Arguments, Result_NotWanted_TheCallSucceeds) {
  EXPECT_EQ(S_OK, taxed().pass(20.0).pass(100.0).without_result().run().code);
}

}  // namespace
