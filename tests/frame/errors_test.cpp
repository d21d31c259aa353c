// A failing call: HRESULT and error information of an early-bound one, EXCEPINFO of a late-bound one.
#include <functional>
#include <memory>

#include "frame/record_argument.h"
#include "support/error_information.h"
#include "support/fake_object.h"

namespace {

using host::by_reference;
using host::ComPtr;
using host::ErrorReport;
using host::FakeObject;
using host::Invocation;
using host::leave_error;
using host::Outcome;
using host::Record;
using host::take_error;
using host::Text;
using host::Variant;

constexpr HRESULT kDivisionByZero = static_cast<HRESULT>(0x800A000B);
constexpr HRESULT kRefusal = static_cast<HRESULT>(0x80041234UL);

/// Information of the host on the thread that does something when it is given up. Kept by the test: a system
/// that is entered again while it gives one up does so twice.
class Relapse final : public IErrorInfo {
 public:
  explicit Relapse(std::function<void()> given_up) : given_up_(std::move(given_up)) {}
  virtual ~Relapse() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IErrorInfo ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    if (references_ != 0 && --references_ == 0) given_up_();
    return references_;
  }
  HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDescription(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

 private:
  std::function<void()> given_up_;
  ULONG references_ = 0;
};

/// DLL_GetAmountDiscounted at a discount of 100 % divides by zero.
class Errors : public ::testing::Test {
 protected:
  void SetUp() override { SetErrorInfo(0, nullptr); }

  Outcome divide_by_zero() {
    return Invocation(outil_.get(), L"DLL_GetAmountDiscounted").pass(100.0).pass(100.0).run();
  }

  /// A call of the library that uses a label of the host, whose width `fail` refuses.
  HRESULT use_failing_label(const std::function<void()>& fail) {
    const auto label = FakeObject::make();
    label->on_get(L"Width", [&fail](const FakeObject::Arguments&) {
      fail();
      return Variant();
    });
    return outil_->SetLabelHauteur(label.get(), Text(L"Titre"), host::missing().get(), host::missing().get(),
                                   host::missing().get());
  }

  ComPtr<_Outil> outil_ = host::create<_Outil>(L"Outil");
  ComPtr<_ContratDoc> contracts_ = host::create<_ContratDoc>(L"ContratDoc");
  Record<Type_Contrat> contract_;
};

TEST_F(Errors, LateBound_AnswersAnException) { EXPECT_EQ(DISP_E_EXCEPTION, divide_by_zero().code); }

TEST_F(Errors, LateBound_Exception_HoldsTheFault) { EXPECT_EQ(kDivisionByZero, divide_by_zero().scode); }

TEST_F(Errors, LateBound_Exception_NamesTheClass) {
  EXPECT_EQ(L"VelmoSAV_DLL14.Outil", divide_by_zero().source);
}

TEST_F(Errors, LateBound_Exception_TellsTheFaultInFrench) {
  EXPECT_EQ(L"Division par zéro", divide_by_zero().description);
}

TEST_F(Errors, LateBound_Result_IsEmpty) { EXPECT_EQ(VT_EMPTY, divide_by_zero().result.get().vt); }

TEST_F(Errors, LateBound_WithoutPlaceForTheException_AnswersTheFault) {
  const Outcome outcome =
      Invocation(outil_.get(), L"DLL_GetAmountDiscounted").pass(100.0).pass(100.0).without_exception().run();
  EXPECT_EQ(kDivisionByZero, outcome.code);
}

TEST_F(Errors, LateBound_WithoutPlaceForTheException_LeavesTheErrorInformation) {
  Invocation(outil_.get(), L"DLL_GetAmountDiscounted").pass(100.0).pass(100.0).without_exception().run();
  EXPECT_EQ(L"Division par zéro", take_error().description);
}

TEST_F(Errors, LateBound_Success_TellsNothing) {
  const Outcome outcome = Invocation(outil_.get(), L"DLL_GetAmountDiscounted").pass(100.0).pass(20.0).run();
  EXPECT_EQ(125.0, outcome.number());
  EXPECT_EQ(S_OK, outcome.scode);
}

TEST_F(Errors, LateBound_AfterAnotherFault_TellsTheLatest) {
  divide_by_zero();
  const Outcome outcome = Invocation(contracts_.get(), L"CadFactPeriod_GetEndFromNextStart")
                              .pass(host::text_value(L"pas une date"))
                              .run();
  EXPECT_EQ(L"VelmoSAV_DLL14.ContratDoc", outcome.source);
  EXPECT_EQ(L"Type incompatible", outcome.description);
}

TEST_F(Errors, LateBound_FailureOfAHostsObject_IsPassedOn) {
  const auto label = FakeObject::make();
  label->on_get(L"Width", [](const FakeObject::Arguments&) -> Variant {
    throw FakeObject::Error{static_cast<HRESULT>(0x800A0F01), L"Ecran.Libelle", L"Largeur indisponible"};
  });
  const Variant object = host::object_value(label.get()), text = host::text_value(L"Titre");
  const Outcome outcome = Invocation(outil_.get(), L"SetLabelHauteur").pass(object).pass(text).run();
  EXPECT_EQ(static_cast<HRESULT>(0x800A0F01), outcome.scode);
  EXPECT_EQ(L"Ecran.Libelle", outcome.source);
  EXPECT_EQ(L"Largeur indisponible", outcome.description);
}

TEST_F(Errors, FailureOfAHostsObject_WithANumberAlone_IsThatNumbersFault) {
  EXPECT_EQ(static_cast<HRESULT>(0x800A0000UL + 3021), use_failing_label([] {
              throw FakeObject::Error{S_OK, L"Ecran", L"Plus de ligne", 3021};
            }));
  EXPECT_EQ(L"Plus de ligne", take_error().description);
}

TEST_F(Errors, FailureOfAHostsObject_WithInformationOnTheThread_IsPassedOn) {
  EXPECT_EQ(kRefusal, use_failing_label([] {
              leave_error(L"Ecran.Libelle", L"Largeur indisponible");
              throw FakeObject::Refusal{kRefusal};
            }));
  const ErrorReport report = take_error();
  EXPECT_EQ(L"Ecran.Libelle", report.source);
  EXPECT_EQ(L"Largeur indisponible", report.description);
}

TEST_F(Errors, FailureOfAHostsObject_WithInformationThatSaysNothing_GetsATextOfTheLibrary) {
  EXPECT_EQ(kRefusal, use_failing_label([] {
              leave_error(L"Ecran.Libelle", L"");
              throw FakeObject::Refusal{kRefusal};
            }));
  const ErrorReport report = take_error();
  EXPECT_EQ(L"VelmoSAV_DLL14.Outil", report.source);
  EXPECT_EQ(L"L'opération a échoué", report.description);
}

TEST_F(Errors, FailuresInsideOneAnother_AreAllReported) {
  // More than the library keeps room for: each failure gives up information of the host, which fails again.
  constexpr std::size_t kDepth = 150;
  std::vector<std::unique_ptr<Relapse>> relapses;
  std::size_t reported = 0;
  const std::function<void()> fail = [&] {
    if (relapses.size() < kDepth) {
      relapses.push_back(std::make_unique<Relapse>(fail));
      SetErrorInfo(0, relapses.back().get());
    }
    double amount = 1;
    reported += outil_->DLL_GetAmountDiscounted(100, 100, 2, &amount) == kDivisionByZero ? 1 : 0;
  };
  fail();
  EXPECT_EQ(kDepth + 1, reported);
  EXPECT_EQ(L"Division par zéro", take_error().description);
}

TEST_F(Errors, LateBound_VariablesByReference_KeepWhatTheMethodLeft) {
  // The index is written back before the contract's end date turns out to be no date.
  short index = -1;
  host::set(contract_->DateFin, L"pas une date");
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 2);
  const host::RecordArgument contract(*contract_);
  const Variant date = host::text_value(L"01/02/2025");
  const Outcome outcome = Invocation(contracts_.get(), L"AjouterCadFactCtt")
                              .pass(contract)
                              .pass(date)
                              .pass(date)
                              .pass(date)
                              .pass(by_reference(index))
                              .run();
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(2, index);
}

TEST_F(Errors, EarlyBound_AnswersTheFault) {
  double amount = 1;
  EXPECT_EQ(kDivisionByZero, outil_->DLL_GetAmountDiscounted(100, 100, 2, &amount));
}

TEST_F(Errors, EarlyBound_Result_IsCleared) {
  double amount = 1;
  outil_->DLL_GetAmountDiscounted(100, 100, 2, &amount);
  EXPECT_EQ(0.0, amount);
}

TEST_F(Errors, EarlyBound_ErrorInformation_NamesClassAndFault) {
  double amount = 1;
  EXPECT_TRUE(host::is_fault(outil_->DLL_GetAmountDiscounted(100, 100, 2, &amount), 11, L"Outil"));
}

TEST_F(Errors, EarlyBound_NullResult_IsAnAddressFault) {
  EXPECT_EQ(E_POINTER, outil_->DLL_GetAmountTTCByHT(20, 100, 2, nullptr));
}

TEST_F(Errors, EarlyBound_NullResult_LeavesErrorInformation) {
  outil_->DLL_GetAmountTTCByHT(20, 100, 2, nullptr);
  const ErrorReport report = take_error();
  EXPECT_EQ(L"VelmoSAV_DLL14.Outil", report.source);
  EXPECT_EQ(L"Adresse d'enregistrement ou de résultat absente", report.description);
}

TEST_F(Errors, EarlyBound_NullRecord_IsAnAddressFault) {
  short count = 5;
  EXPECT_EQ(E_POINTER, contracts_->NbrCadFact(nullptr, &count));
}

TEST_F(Errors, EarlyBound_NullRecord_LeavesErrorInformation) {
  short count = 5;
  contracts_->NbrCadFact(nullptr, &count);
  EXPECT_EQ(L"VelmoSAV_DLL14.ContratDoc", take_error().source);
}

TEST_F(Errors, EarlyBound_NullRecordOfAMethodWithoutResult_IsAnAddressFault) {
  EXPECT_EQ(E_POINTER, contracts_->RazDocCtt(nullptr));
}

TEST_F(Errors, EarlyBound_NullVariable_IsAnAddressFault) {
  const auto general = host::create<_General>(L"General");
  Text format;
  short value = 1;
  EXPECT_EQ(E_POINTER, general->GetFmtSaisDureeUnit(nullptr, &value, &format));
}

TEST_F(Errors, EarlyBound_NullVariableOfAMethodWithoutResult_IsAnAddressFault) {
  const auto general = host::create<_ApiGeneral>(L"ApiGeneral");
  EXPECT_EQ(E_POINTER, general->RemplaceTxt(nullptr, Text(L"a"), Text(L"b")));
}

TEST_F(Errors, LateBound_NullVariable_IsAnAddressFault) {
  const auto general = host::create_dispatch(L"General");
  const Variant one(short{1});
  const Outcome outcome =
      Invocation(general.get(), L"GetFmtSaisDureeUnit").pass(by_reference(VT_BSTR, nullptr)).pass(one).run();
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(E_POINTER, outcome.scode);
}

}  // namespace
