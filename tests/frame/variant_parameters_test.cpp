// VARIANT parameters, optional objects and flags by reference: what a method writes reaches the caller's
// variable, whatever its type.
#include "frame/record_argument.h"

namespace {

using host::by_reference;
using host::ComPtr;
using host::Invocation;
using host::missing;
using host::Outcome;
using host::Record;
using host::RecordArgument;
using host::Variant;

/// GetMttCtt(Doc, MttHT, MttTTC) writes both sums of the schedule into the optional VARIANT arguments.
class VariantParameters : public ::testing::Test {
 protected:
  void SetUp() override {
    host::set(contract_->TypeTypTarif, L"H");
    host::dimension<Type_CadencierFact>(contract_->TabCadFact, 2);
    for (unsigned long i = 0; i < 2; ++i) {
      auto& line = host::element<Type_CadencierFact>(contract_->TabCadFact, i);
      line.MontantHT = 100;
      line.MontantTTC = 120;
    }
  }

  Outcome sums(const Variant& before_tax, const Variant& with_tax) {
    const RecordArgument contract(*contract_);
    return Invocation(contracts_.get(), L"GetMttCtt").pass(contract).pass(before_tax).pass(with_tax).run();
  }

  ComPtr<IDispatch> contracts_ = host::create_dispatch(L"ContratDoc");
  Record<Type_Contrat> contract_;
  Variant missing_ = missing();
};

TEST_F(VariantParameters, LeftOut_TheCallWorksWithoutThem) {
  const RecordArgument contract(*contract_);
  EXPECT_EQ(200.0, Invocation(contracts_.get(), L"GetMttCtt").pass(contract).run().number());
}

TEST_F(VariantParameters, GivenAsMissing_TheCallWorksWithoutThem) {
  EXPECT_EQ(200.0, sums(missing_, missing_).number());
}

TEST_F(VariantParameters, GivenAsMissing_TheCallersArgumentStays) {
  Invocation call(contracts_.get(), L"GetMttCtt");
  const RecordArgument contract(*contract_);
  ASSERT_EQ(S_OK, call.pass(contract).pass(missing_).run().code);
  EXPECT_EQ(VT_ERROR, call.argument(1).vt);
}

TEST_F(VariantParameters, Variable_ReceivesTheValue) {
  Variant before_tax;
  ASSERT_EQ(S_OK, sums(by_reference(before_tax), missing_).code);
  EXPECT_EQ(200.0, velmosav::to_double(before_tax.get()));
}

TEST_F(VariantParameters, Variable_HoldingAText_ReceivesTheValue) {
  Variant with_tax = host::text_value(L"ancien");
  ASSERT_EQ(S_OK, sums(missing_, by_reference(with_tax)).code);
  EXPECT_EQ(240.0, velmosav::to_double(with_tax.get()));
}

TEST_F(VariantParameters, Variable_OfAVariable_ReceivesTheValue) {
  Variant before_tax;
  Variant inner = by_reference(before_tax);
  ASSERT_EQ(S_OK, sums(by_reference(inner), missing_).code);
  EXPECT_EQ(200.0, velmosav::to_double(before_tax.get()));
}

TEST_F(VariantParameters, TypedVariable_ReceivesTheValue) {
  double before_tax = 0;
  ASSERT_EQ(S_OK, sums(by_reference(before_tax), missing_).code);
  EXPECT_EQ(200.0, before_tax);
}

TEST_F(VariantParameters, TypedVariable_OfAnotherType_ReceivesTheValueConverted) {
  long before_tax = 0;
  ASSERT_EQ(S_OK, sums(by_reference(before_tax), missing_).code);
  EXPECT_EQ(200, before_tax);
}

TEST_F(VariantParameters, Value_TheCallersArgumentStays) {
  Invocation call(contracts_.get(), L"GetMttCtt");
  const RecordArgument contract(*contract_);
  ASSERT_EQ(S_OK, call.pass(contract).pass(Variant(5L)).run().code);
  EXPECT_EQ(VT_I4, call.argument(1).vt);
  EXPECT_EQ(5, call.argument(1).lVal);
}

TEST_F(VariantParameters, Named_ReceivesTheValue) {
  Variant with_tax;
  const RecordArgument contract(*contract_);
  ASSERT_EQ(S_OK, Invocation(contracts_.get(), L"GetMttCtt")
                      .pass(contract)
                      .pass_named(L"MttTTC", by_reference(with_tax).get())
                      .run()
                      .code);
  EXPECT_EQ(240.0, velmosav::to_double(with_tax.get()));
}

TEST_F(VariantParameters, ByValue_LeftOut_IsMissing) {
  host::element<Type_CadencierFact>(contract_->TabCadFact, 0).Transfere = VARIANT_TRUE;
  const RecordArgument contract(*contract_);
  const Outcome outcome = Invocation(contracts_.get(), L"GetMttEchTransf").pass(contract).run();
  EXPECT_EQ(1000000, outcome.result.get().cyVal.int64);
}

TEST_F(VariantParameters, ByValue_GivenInAVariable_IsRead) {
  host::element<Type_CadencierFact>(contract_->TabCadFact, 0).Transfere = VARIANT_TRUE;
  Variant kind = host::text_value(L"T");
  const RecordArgument contract(*contract_);
  const Outcome outcome =
      Invocation(contracts_.get(), L"GetMttEchTransf").pass(contract).pass(by_reference(kind)).run();
  EXPECT_EQ(1200000, outcome.result.get().cyVal.int64);
}

TEST_F(VariantParameters, ByValue_GivenAsATypedVariable_IsRead) {
  host::element<Type_CadencierFact>(contract_->TabCadFact, 0).Transfere = VARIANT_TRUE;
  host::Text kind = L"T";
  const RecordArgument contract(*contract_);
  const Outcome outcome =
      Invocation(contracts_.get(), L"GetMttEchTransf").pass(contract).pass(by_reference(kind)).run();
  EXPECT_EQ(1200000, outcome.result.get().cyVal.int64);
}

/// FirstIntervSite(Contrat, NumInterv, Suiv, Prec) clears Prec when both flags are set.
class FlagsByReference : public ::testing::Test {
 protected:
  void SetUp() override { host::dimension<Type_Intervention>(contract_->TabInterv, 1); }

  Outcome first_of_site(const Variant& next, const Variant& previous) {
    const RecordArgument contract(*contract_);
    short place = 0;
    return Invocation(contracts_.get(), L"FirstIntervSite")
        .pass(contract)
        .pass(by_reference(place))
        .pass(next)
        .pass(previous)
        .run();
  }

  ComPtr<IDispatch> contracts_ = host::create_dispatch(L"ContratDoc");
  Record<Type_Contrat> contract_;
  Variant true_ = host::bool_value(true);
};

TEST_F(FlagsByReference, ExactlyTyped_IsChangedInPlace) {
  VARIANT_BOOL previous = VARIANT_TRUE;
  ASSERT_EQ(S_OK, first_of_site(true_, by_reference(VT_BOOL, &previous)).code);
  EXPECT_EQ(VARIANT_FALSE, previous);
}

TEST_F(FlagsByReference, InAVariable_IsChanged) {
  Variant previous = host::bool_value(true);
  ASSERT_EQ(S_OK, first_of_site(true_, by_reference(previous)).code);
  EXPECT_EQ(VARIANT_FALSE, previous.get().boolVal);
}

TEST_F(FlagsByReference, InAVariableHoldingANumber_IsConvertedAndWrittenBack) {
  Variant previous(1L);
  ASSERT_EQ(S_OK, first_of_site(true_, by_reference(previous)).code);
  EXPECT_FALSE(velmosav::to_bool(previous.get()));
}

TEST_F(FlagsByReference, InAVariableHoldingANumber_UnchangedByTheMethod_KeepsIt) {
  Variant next(7L);
  ASSERT_EQ(S_OK, first_of_site(by_reference(next), true_).code);
  EXPECT_EQ(VT_I4, next.get().vt);
  EXPECT_EQ(7, next.get().lVal);
}

}  // namespace
