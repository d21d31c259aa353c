// Records as arguments and results of late-bound calls.
#include "support/allocations.h"
#include "frame/record_argument.h"
#include "support/fake_object.h"

namespace {

using host::by_reference;
using host::ComPtr;
using host::FakeObject;
using host::Invocation;
using host::Outcome;
using host::Record;
using host::RecordArgument;
using host::text_value;
using host::Variant;

class RecordArguments : public ::testing::Test {
 protected:
  Outcome call(const wchar_t* method, const VARIANT& contract) {
    return Invocation(contracts_.get(), method).pass(contract).run();
  }

  ComPtr<IDispatch> contracts_ = host::create_dispatch(L"ContratDoc");
  Record<Type_Contrat> contract_;
};

TEST_F(RecordArguments, ByReference_IsRead) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 3);
  EXPECT_EQ(3, call(L"NbrCadFact", RecordArgument(*contract_)).result.get().iVal);
}

TEST_F(RecordArguments, ByReference_IsChangedInPlace) {
  contract_->MontantHT = 90;
  contract_->Remise = 10;
  ASSERT_EQ(S_OK, call(L"CalculMttBrut", RecordArgument(*contract_)).code);
  EXPECT_EQ(100.0, contract_->MontantHTBrut);
}

TEST_F(RecordArguments, ByReference_ArraysAreChangedInPlace) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 3);
  ASSERT_EQ(S_OK, call(L"RazDocCtt", RecordArgument(*contract_)).code);
  EXPECT_EQ(nullptr, contract_->TabCadFact);
}

TEST_F(RecordArguments, ByValue_IsRead) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 2);
  EXPECT_EQ(2, call(L"NbrCadFact", RecordArgument(*contract_, VT_RECORD)).result.get().iVal);
}

TEST_F(RecordArguments, InAVariable_IsChangedInPlace) {
  contract_->MontantHT = 90;
  contract_->Remise = 10;
  RecordArgument variable(*contract_, VT_RECORD);
  ASSERT_EQ(S_OK, call(L"CalculMttBrut", by_reference(variable.value()).get()).code);
  EXPECT_EQ(100.0, contract_->MontantHTBrut);
}

TEST_F(RecordArguments, Optional_AfterARecord_TakesItsDefault) {
  contract_->MontantHT = 10;
  contract_->Remise = 30;
  ASSERT_EQ(S_OK, call(L"CalculMttBrut", RecordArgument(*contract_)).code);
  EXPECT_EQ(14.29, contract_->MontantHTBrut);
}

TEST_F(RecordArguments, Optional_AfterARecord_IsPassed) {
  contract_->MontantHT = 10;
  contract_->Remise = 30;
  const RecordArgument argument(*contract_);
  ASSERT_EQ(S_OK, Invocation(contracts_.get(), L"CalculMttBrut").pass(argument).pass(Variant(3L)).run().code);
  EXPECT_EQ(14.286, contract_->MontantHTBrut);
}

TEST_F(RecordArguments, Named_IsRead) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 4);
  const RecordArgument argument(*contract_);
  EXPECT_EQ(
      4,
      Invocation(contracts_.get(), L"NbrCadFact").pass_named(L"Contrat", argument).run().result.get().iVal);
}

TEST_F(RecordArguments, OfAnotherType_IsRefusedWithItsPlace) {
  Record<Type_CadencierFact> line;
  const RecordArgument argument(*line);
  const Outcome outcome =
      Invocation(contracts_.get(), L"CalculMttBrut").pass(argument).pass(Variant(2L)).run();
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
  EXPECT_EQ(1u, outcome.bad_argument);
}

TEST_F(RecordArguments, WithoutADescription_IsRefused) {
  RecordArgument argument(*contract_);
  argument.value().pRecInfo = nullptr;
  EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"NbrCadFact", argument).code);
}

TEST_F(RecordArguments, AnObjectInstead_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"NbrCadFact", host::object_value(contracts_.get()).get()).code);
}

TEST_F(RecordArguments, AsAnEmptyVariable_IsRefused) {
  Variant variable;
  EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"NbrCadFact", by_reference(variable).get()).code);
}

TEST_F(RecordArguments, LeftOut_IsRefused) {
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, Invocation(contracts_.get(), L"NbrCadFact").run().code);
}

TEST_F(RecordArguments, NullAddress_IsAnAddressFault) {
  RecordArgument argument(*contract_);
  argument.value().pvRecord = nullptr;
  const Outcome outcome = call(L"NbrCadFact", argument);
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(E_POINTER, outcome.scode);
}

TEST_F(RecordArguments, GivenToANumber_IsRefused) {
  const auto outil = host::create_dispatch(L"Outil");
  EXPECT_TRUE(FAILED(Invocation(outil.get(), L"ObjFromPtr").pass(RecordArgument(*contract_)).run().code));
}

TEST_F(RecordArguments, Currency_Result_IsReturned) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 1);
  auto& line = host::element<Type_CadencierFact>(contract_->TabCadFact, 0);
  line.Transfere = VARIANT_TRUE;
  line.MontantHT = 1234.5;
  host::set(contract_->TypeTypTarif, L"H");
  const Outcome outcome = call(L"GetMttEchTransf", RecordArgument(*contract_));
  ASSERT_EQ(VT_CY, outcome.result.get().vt);
  EXPECT_EQ(12345000, outcome.result.get().cyVal.int64);
}

/// ReadRepartTVA: an object, a number and a text go in, a record comes out.
class RecordResult : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto entry = FakeObject::make();
    entry->property(L"TauxTva", Variant(20.0));
    entry->property(L"Compte", text_value(L"445711"));
    entry->property(L"CompteEnc", text_value(L"445740"));
    vat_->on_get(L"EnrTva",
                 [entry](const FakeObject::Arguments&) { return host::object_value(entry.get()); });
    vat_->property(L"FormatTVA", text_value(L"1;3"));
    vat_->property(L"FormatTVANonMulti", text_value(L"1"));
  }

  Outcome read(const wchar_t* distribution, bool wanted = true) {
    IDispatch* table = vat_.get();
    Invocation call(repart_.get(), L"ReadRepartTVA");
    const Variant text = text_value(distribution);
    call.pass(by_reference(VT_DISPATCH, &table)).pass(by_reference(code_)).pass(text).pass(100.0);
    if (!wanted) call.without_result();
    return call.run();
  }

  /// Takes the record out of the result and gives its memory back: by the library's own tables, the
  /// platform's description does not free nested records everywhere.
  static Record<Type_RepartTVA> taken(Outcome& outcome) {
    Record<Type_RepartTVA> record;
    const VARIANT value = outcome.result.detach();
    EXPECT_EQ(VT_RECORD, value.vt);
    if (value.vt != VT_RECORD) return record;
    GUID id{};
    EXPECT_EQ(S_OK, value.pRecInfo->GetGuid(&id));
    EXPECT_TRUE(IsEqualGUID(velmosav::layout_of<Type_RepartTVA>().id, id));
    std::swap(*record, *static_cast<Type_RepartTVA*>(value.pvRecord));
    value.pRecInfo->RecordDestroy(value.pvRecord);
    value.pRecInfo->Release();
    return record;
  }

  ComPtr<IDispatch> repart_ = host::create_dispatch(L"TvaRepart");
  ComPtr<FakeObject> vat_ = FakeObject::make();
  short code_ = 1;
};

TEST_F(RecordResult, NumbersOfItsTable_AreReturned) {
  Outcome outcome = read(L"1@40@3@60@");
  ASSERT_EQ(S_OK, outcome.code);
  const auto record = taken(outcome);
  EXPECT_EQ(40.0, record->Lignes[1].Pourcent);
  EXPECT_EQ(60.0, record->Lignes[3].Pourcent);
  EXPECT_EQ(60.0, record->Lignes[3].MontantBase);
  EXPECT_EQ(12.0, record->Lignes[3].MontantTVA);
}

TEST_F(RecordResult, TextsOfItsTable_AreReturned) {
  Outcome outcome = read(L"1@40@3@60@");
  EXPECT_EQ(L"445711", host::get(taken(outcome)->Lignes[3].Compte));
}

TEST_F(RecordResult, LastField_IsReturned) {
  Outcome outcome = read(L"1@40@3@60@");
  EXPECT_EQ(L"1", host::get(taken(outcome)->FormatTVANonMulti));
}

TEST_F(RecordResult, ArgumentByReferenceBesideIt_IsChanged) {
  Outcome outcome = read(L"1@40@3@60@");
  taken(outcome);
  EXPECT_EQ(99, code_);
}

TEST_F(RecordResult, GivenToTheNextCall_IsRead) {
  Outcome outcome = read(L"1@40@3@60@");
  auto record = taken(outcome);
  EXPECT_EQ(L"1@40@3@60@",
            Invocation(repart_.get(), L"WriteRepartTVA").pass(RecordArgument(*record)).run().text());
}

TEST_F(RecordResult, Taken_LeavesNoMemoryBehind) {
  Outcome warm_up = read(L"1@40@3@60@");
  taken(warm_up);
  const host::Allocations allocations;
  {
    Outcome outcome = read(L"1@40@3@60@");
    taken(outcome);
  }
  EXPECT_EQ(0u, allocations.outstanding());
}

TEST_F(RecordResult, NotWanted_LeavesNoMemoryBehind) {
  read(L"1@40@3@60@", false);
  const host::Allocations allocations;
  read(L"1@40@3@60@", false);
  EXPECT_EQ(0u, allocations.outstanding());
}

TEST_F(RecordResult, OfAFailedCall_IsNotReturned) {
  const Outcome outcome = read(L"un@100@");
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(VT_EMPTY, outcome.result.get().vt);
}

TEST_F(RecordResult, OfAFailedCall_LeavesNoMemoryBehind) {
  read(L"1@40@un@60@");
  const host::Allocations allocations;
  read(L"1@40@un@60@");
  EXPECT_EQ(0u, allocations.outstanding());
}

}  // namespace
