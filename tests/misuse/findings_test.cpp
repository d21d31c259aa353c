// What generated calls have found, each as a test of its own: inputs that crashed the host, left something
// behind, or failed without words of their own.
#include "frame/invocation.h"
#include "frame/record_argument.h"
#include "support/error_information.h"
#include "support/fake_object.h"

namespace {

using host::by_reference;
using host::ComPtr;
using host::create;
using host::FakeObject;
using host::Invocation;
using host::is_fault;
using host::missing;
using host::Outcome;
using host::Record;
using host::Text;
using host::Variant;
using velmosav::RecordLayout;

VARIANT reference_to_nothing(VARTYPE type) { return by_reference(type, nullptr).get(); }

/// An array that says what it holds: `count` elements of a type, all zero.
SAFEARRAY* typed_array(VARTYPE type, ULONG count) { return SafeArrayCreateVector(type, 0, count); }

// --- references to nothing

TEST(MisuseFindings, AReferenceToNothing_AsAValue_IsATypeFault) {
  const auto outil = create<_Outil>(L"Outil");
  const auto label = FakeObject::make();
  EXPECT_TRUE(is_fault(outil->SetLabelHauteur(label.get(), Text(L"a"), reference_to_nothing(VT_I4),
                                              missing().get(), missing().get()),
                       13, L"Outil"));
}

TEST(MisuseFindings, AReferenceToNothing_AsAVariable_IsATypeFault) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract;
  VARIANT before_tax = reference_to_nothing(VT_R8), after_tax = reference_to_nothing(VT_VARIANT);
  double total = 0;
  EXPECT_TRUE(is_fault(documents->GetMttCtt(contract, &before_tax, nullptr, &total), 13, L"ContratDoc"));
  EXPECT_TRUE(is_fault(documents->GetMttCtt(contract, nullptr, &after_tax, &total), 13, L"ContratDoc"));
}

TEST(MisuseFindings, AReferenceToNothing_LateBound_IsATypeMismatch) {
  const auto outil = host::create_dispatch(L"Outil");
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Invocation(outil.get(), L"SetStringForSQL").pass(reference_to_nothing(VT_I4)).run().code);
}

TEST(MisuseFindings, AReferenceToNothing_InAGrid_IsATypeFault) {
  const auto generation = create<_Generation>(L"Generation");
  SAFEARRAYBOUND bounds[] = {{2, 0}, {14, 0}};
  Variant grid;
  grid.get().vt = VT_ARRAY | VT_VARIANT;
  grid.get().parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  auto* cells = static_cast<VARIANT*>(grid.get().parray->pvData);
  for (int i = 0; i < 28; ++i) cells[i] = reference_to_nothing(VT_BSTR);
  VARIANT_BOOL breaks = VARIANT_FALSE;
  EXPECT_TRUE(is_fault(generation->IsRuptRgrpCadFact(&grid.get(), 0, 1, &breaks), 13, L"Generation"));
}

/// A variable that refers to one that refers to nothing.
class ReferencesToNothing : public ::testing::Test {
 protected:
  VARIANT nothing_ = reference_to_nothing(VT_BSTR);
  VARIANT first_ = by_reference(nothing_).get();
  VARIANT second_ = by_reference(first_).get();
};

TEST_F(ReferencesToNothing, AsAValue_IsATypeFault) {
  const auto outil = create<_Outil>(L"Outil");
  const auto label = FakeObject::make();
  EXPECT_TRUE(
      is_fault(outil->SetLabelHauteur(label.get(), Text(L"a"), second_, missing().get(), missing().get()), 13,
               L"Outil"));
}

TEST_F(ReferencesToNothing, AsAVariable_IsATypeFault) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract;
  VARIANT_BOOL transferred = VARIANT_FALSE;
  EXPECT_TRUE(is_fault(documents->IsEchCttTransferee(contract, &second_, nullptr, nullptr, &transferred), 13,
                       L"ContratDoc"));
}

TEST_F(ReferencesToNothing, LateBound_IsATypeMismatch) {
  const auto outil = host::create_dispatch(L"Outil");
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Invocation(outil.get(), L"SetStringForSQL").pass(second_).run().code);
}

/// A variable that refers to itself, as a host makes it by mistake.
class ReferenceToItself : public ::testing::Test {
 protected:
  ReferenceToItself() { variable_ = by_reference(variable_).get(); }
  VARIANT variable_{};
};

TEST_F(ReferenceToItself, AsAValue_IsATypeFault) {
  const auto outil = create<_Outil>(L"Outil");
  const auto label = FakeObject::make();
  EXPECT_TRUE(
      is_fault(outil->SetLabelHauteur(label.get(), Text(L"a"), variable_, missing().get(), missing().get()),
               13, L"Outil"));
}

TEST_F(ReferenceToItself, AsAVariableToFill_IsATypeFault) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract;
  double total = 0;
  EXPECT_TRUE(is_fault(documents->GetMttCtt(contract, &variable_, nullptr, &total), 13, L"ContratDoc"));
}

TEST_F(ReferenceToItself, AsAGrid_IsATypeFault) {
  const auto generation = create<_Generation>(L"Generation");
  VARIANT_BOOL breaks = VARIANT_FALSE;
  EXPECT_TRUE(is_fault(generation->IsRuptRgrpCadFact(&variable_, 0, 1, &breaks), 13, L"Generation"));
}

TEST_F(ReferenceToItself, LateBound_IsATypeMismatch) {
  const auto outil = host::create_dispatch(L"Outil");
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Invocation(outil.get(), L"SetStringForSQL").pass(variable_).run().code);
}

// --- records where a value is awaited

class RecordAsValue : public ::testing::Test {
 protected:
  RecordAsValue() { host::dimension<Type_CadencierFact>(contract_->TabCadFact, 2); }

  Record<Type_Contrat> contract_;
  host::RecordArgument record_{*contract_, VT_RECORD};
};

TEST_F(RecordAsValue, IsATypeFault) {
  const auto outil = create<_Outil>(L"Outil");
  const auto label = FakeObject::make();
  EXPECT_TRUE(
      is_fault(outil->SetLabelHauteur(label.get(), Text(L"a"), record_, missing().get(), missing().get()), 13,
               L"Outil"));
}

TEST_F(RecordAsValue, LateBound_IsATypeMismatch) {
  const auto outil = host::create_dispatch(L"Outil");
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Invocation(outil.get(), L"SetStringForSQL").pass(record_).run().code);
}

TEST_F(RecordAsValue, AsAVariableToFill_IsATypeFaultAndStays) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> other;
  double total = 0;
  EXPECT_TRUE(is_fault(documents->GetMttCtt(other, &record_.value(), nullptr, &total), 13, L"ContratDoc"));
  EXPECT_EQ(VT_RECORD, record_.value().vt);
}

// --- arrays that say that they are of another type

TEST(MisuseFindings, TextsInTheArrayOfDevices_AreATypeFaultAndStay) {
  const auto orders = create<_Bon>(L"Bon");
  SAFEARRAY* texts = typed_array(VT_BSTR, 2);
  host::element<BSTR>(texts, 0) = SysAllocString(L"appareil");
  SAFEARRAY* argument = texts;
  EXPECT_TRUE(is_fault(orders->RazTabApp(&argument), 13, L"Bon"));
  EXPECT_EQ(texts, argument);
  EXPECT_EQ(L"appareil", host::get(host::element<BSTR>(texts, 0)));
  SafeArrayDestroy(texts);
}

TEST(MisuseFindings, NumbersInTheTableOfResources_CountAsNoTable) {
  const auto interventions = create<_Intervention>(L"Intervention");
  Record<Type_Intervention> record;
  SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
  record->TabRes = SafeArrayCreate(VT_I4, 2, bounds);
  *static_cast<long*>(record->TabRes->pvData) = 12345;
  short count = 0;
  EXPECT_EQ(S_OK, interventions->NbrRessources(record, &count));
  EXPECT_EQ(-1, count);
}

TEST(MisuseFindings, VariantsInAnArrayOfRecordsOfTheSameSize_AreATypeFault) {
  static_assert(sizeof(VARIANT) == sizeof(Type_LigneRessource));
  const auto orders = create<_Bon>(L"Bon");
  Record<Type_Bon> order;
  order->TabTech = typed_array(VT_VARIANT, 1);
  auto& cell = host::element<VARIANT>(order->TabTech, 0);
  cell.vt = VT_I4;
  cell.decVal.Lo64 = 0x1234567812345678;
  EXPECT_TRUE(is_fault(orders->RazDocInt(order, VARIANT_TRUE), 13, L"Bon"));
}

TEST(MisuseFindings, RecordsOfAnotherKindAndTheSameSize_AreATypeFaultAndStay) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  const RecordLayout& right = velmosav::layout_of<Type_CadencierInterv>();
  unsigned others = 0;
  for (const RecordLayout* other : velmosav::all_layouts()) {
    if (other->size != right.size || other == &right) continue;
    ++others;
    Record<Type_Contrat> contract;
    host::dimension<Type_Intervention>(contract->TabInterv, 1);
    const auto info = host::record_info(other->id);
    SAFEARRAYBOUND bound{1, 0};
    contract->TabCadInterv = SafeArrayCreateEx(VT_RECORD, 1, &bound, info.get());
    ASSERT_NE(nullptr, contract->TabCadInterv);
    const auto before = host::snapshot(*contract);
    VARIANT_BOOL modifiable = VARIANT_FALSE;
    EXPECT_TRUE(is_fault(documents->IsInfosIntervModifiable(contract, missing().get(), &modifiable), 13,
                         L"ContratDoc"));
    EXPECT_EQ(std::vector<std::string>(), host::differences(*before, *contract)) << other->name;
  }
  EXPECT_NE(0u, others);
}

// --- nested arrays

TEST(MisuseFindings, ObjectsInsideAnErasedIntervention_AreReleased) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  const auto device = FakeObject::make();
  Record<Type_Contrat> contract;
  host::dimension<Type_Intervention>(contract->TabInterv, 1);
  auto& intervention = host::element<Type_Intervention>(contract->TabInterv, 0);
  intervention.TabAppareil = host::make_array(sizeof(IDispatch*), 1);
  host::element<IDispatch*>(intervention.TabAppareil, 0) = ComPtr<FakeObject>(device).detach();
  ASSERT_EQ(2, device->references());
  EXPECT_EQ(S_OK, documents->RazDocCtt(contract));
  EXPECT_EQ(1, device->references());
}

TEST(MisuseFindings, ALockedArrayInsideAnErasedOne_IsALockFaultAndNothingIsLost) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract;
  host::dimension<Type_Intervention>(contract->TabInterv, 2);
  auto& intervention = host::element<Type_Intervention>(contract->TabInterv, 1);
  host::set(host::element<Type_Intervention>(contract->TabInterv, 0).Libelle, L"Entretien");
  host::dimension<Type_LigneCouverture>(intervention.Couverture.Liste, 1);
  SafeArrayLock(intervention.Couverture.Liste);
  EXPECT_TRUE(is_fault(documents->RazDocCtt(contract), 10, L"ContratDoc"));
  ASSERT_NE(nullptr, contract->TabInterv);
  EXPECT_EQ(L"Entretien", host::get(host::element<Type_Intervention>(contract->TabInterv, 0).Libelle));
  EXPECT_NE(nullptr, intervention.Couverture.Liste);
  SafeArrayUnlock(intervention.Couverture.Liste);
}

TEST(MisuseFindings, ALockedArrayInAVariableToFill_IsALockFaultAndStays) {
  const auto documents = create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract;
  Variant variable;
  variable.get().vt = VT_ARRAY | VT_I2;
  variable.get().parray = typed_array(VT_I2, 3);
  SafeArrayLock(variable.get().parray);
  double total = 0;
  EXPECT_TRUE(is_fault(documents->GetMttCtt(contract, &variable.get(), nullptr, &total), 10, L"ContratDoc"));
  EXPECT_EQ(VT_ARRAY | VT_I2, variable.get().vt);
  SafeArrayUnlock(variable.get().parray);
}

// --- objects of the host

TEST(MisuseFindings, AnObjectThatTheHostDropsDuringTheCall_IsHeldToItsEnd) {
  const auto outil = create<_Outil>(L"Outil");
  IDispatch* variable = nullptr;
  long lowest = 1;
  const auto button = FakeObject::make();
  for (const wchar_t* name : {L"Container", L"Width", L"Height", L"hWnd"}) {
    button->on_get(name, [&](const auto&) {
      if (IDispatch* dropped = std::exchange(variable, nullptr)) dropped->Release();
      lowest = std::min(lowest, button->references() - 1);
      return Variant(0L);
    });
  }
  variable = ComPtr<FakeObject>(button).detach();
  EXPECT_EQ(S_OK, outil->SetRegionStdBout(&variable));
  EXPECT_EQ(1, lowest) << "references of the library while it uses the object";
  EXPECT_EQ(1, button->references());
}

TEST(MisuseFindings, AnObjectThatFailsWithoutWords_GetsATextOfTheLibrary) {
  const auto outil = create<_Outil>(L"Outil");
  const auto label = FakeObject::make();
  label->on_get(L"Width", [](const auto&) -> Variant {
    throw FakeObject::Error{E_ACCESSDENIED, L"hote", L""};
  });
  EXPECT_EQ(E_ACCESSDENIED, outil->SetLabelHauteur(label.get(), Text(L"a"), missing().get(), missing().get(),
                                                   missing().get()));
  EXPECT_FALSE(host::take_error().description.empty());
}

/// Fails at every name, with a code alone.
class Disconnected final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return RPC_E_DISCONNECTED;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return RPC_E_DISCONNECTED;
  }
  virtual ~Disconnected() = default;
};

TEST(MisuseFindings, AnObjectThatFailsWithACodeAlone_DoesNotGetTheTextOfAnEarlierFailure) {
  const auto outil = create<_Outil>(L"Outil");
  Disconnected object;
  IDispatch* variable = &object;
  host::leave_error(nullptr, L"un appel d'avant");
  EXPECT_EQ(RPC_E_DISCONNECTED, outil->SetRegionStdBout(&variable));
  const host::ErrorReport report = host::take_error();
  EXPECT_FALSE(report.description.empty());
  EXPECT_NE(L"un appel d'avant", report.description);
}

TEST(MisuseFindings, AReferenceInsideAReference_LateBound_IsATypeMismatch) {
  const auto outil = host::create_dispatch(L"Outil");
  VARIANT object = reference_to_nothing(VT_DISPATCH);
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Invocation(outil.get(), L"SetStringForSQL").pass(by_reference(object)).run().code);
}

}  // namespace
