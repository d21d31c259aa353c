// Memory runs out at the first use of all: in a DLL that was just loaded, on a thread that was just started,
// where nothing has been set up yet that later calls find ready.
#include <atomic>
#include <functional>
#include <thread>

#include "memory/documents.h"
#include "memory/figures.h"
#include "memory/fresh_library.h"
#include "memory/library_under_test.h"

namespace {

using namespace host;
using Refusal = LibraryMemory::Refusal;

/// Runs on a thread of its own, in an apartment.
HRESULT on_new_thread(const std::function<HRESULT()>& body) {
  HRESULT code = E_FAIL;
  std::thread([&] {
    CoInitialize(nullptr);
    code = body();
    SetErrorInfo(0, nullptr);
    CoUninitialize();
  }).join();
  return code;
}

class FirstUse : public ::testing::Test {
 protected:
  using Use = std::function<HRESULT(const FreshLibrary&)>;

  /// Refuses one allocation after the other of a use whose answer is `outcome` when nothing is refused.
  void refuse_all(HRESULT outcome, const Use& use) {
    for (const Refusal refusal : {Refusal::Once, Refusal::FromThenOn}) {
      for (std::size_t number = 1;; ++number) {
        const std::string refused = refuse(number, refusal, outcome, use);
        if (refused.empty()) break;
        ++figures().cold_refusals;
        ASSERT_FALSE(HasFailure()) << (refusal == Refusal::Once ? "once, " : "from then on, ") << number
                                   << ", " << refused;
        ASSERT_GT(20000U, number);
      }
    }
  }

 private:
  std::string refuse(std::size_t number, Refusal refusal, HRESULT outcome, const Use& use) {
    const FreshLibrary library(copy_);
    std::string refused;
    {
      LibraryMemory memory(library.module());
      memory.refuse(number, refusal);
      const HRESULT code = on_new_thread([&] { return use(library); });
      memory.allow();
      refused = memory.refused();
      if (refused.empty() || (FAILED(outcome) && code != E_OUTOFMEMORY)) {
        EXPECT_EQ(outcome, code);
      } else {
        EXPECT_EQ(E_OUTOFMEMORY, code);
      }
      EXPECT_EQ(outcome, use(library)) << "the next use";
      SetErrorInfo(0, nullptr);
      EXPECT_EQ(S_OK, library.can_unload());
    }
    return refused;
  }

  const LibraryCopy copy_;
};

TEST_F(FirstUse, CreatingEachClass) {
  for (const auto& [name, clsid, iid, empty] : catalogue()) {
    SCOPED_TRACE(utf8(name));
    refuse_all(S_OK, [&clsid = clsid, &iid = iid](const FreshLibrary& library) {
      ComPtr<IUnknown> object;
      return library.create(clsid, iid, object.receive_void());
    });
  }
}

TEST_F(FirstUse, AFault) {
  refuse_all(velmosav::fault_code(Fault::TypeMismatch), [](const FreshLibrary& library) {
    ComPtr<_ContratDoc> contracts;
    if (const HRESULT code = library.create<::ContratDoc>(contracts); FAILED(code)) return code;
    Text result;
    return contracts->CadFactPeriod_GetEndFromNextStart(Text(L"bientôt"), &result);
  });
}

TEST_F(FirstUse, AScheduleThatIsDimensioned) {
  refuse_all(S_OK, [](const FreshLibrary& library) {
    ComPtr<_ContratDoc> contracts;
    if (const HRESULT code = library.create<::ContratDoc>(contracts); FAILED(code)) return code;
    auto contract = billed_contract();
    velmosav::erase<Type_CadencierFact>(contract->TabCadFact);
    short index = 0, result = 0;
    return contracts->AjouterCadFactCtt(contract, Text(L"05/01/2025"), Text(L"01/01/2025"),
                                        Text(L"31/03/2025"), &index, &result);
  });
}

TEST_F(FirstUse, AnXmlInvoice) {
  refuse_all(S_OK, [](const FreshLibrary& library) {
    ComPtr<_InvoiceXMLLib> invoices;
    if (const HRESULT code = library.create<::InvoiceXMLLib>(invoices); FAILED(code)) return code;
    auto contract = billed_contract();
    short line = 0;
    Text result;
    return invoices->AddCttToInvoiceXML(contract, 1, Text(), -1, &line, &result);
  });
}

TEST_F(FirstUse, ACallByName) {
  const auto info = record_info<Type_RepartTVA>();
  refuse_all(S_OK, [&info](const FreshLibrary& library) {
    ComPtr<IDispatch> rates;
    if (const HRESULT code = library.create<::TvaRepart>(rates); FAILED(code)) return code;
    Record<Type_RepartTVA> split;
    return call_by_name(*rates.get(), L"WriteRepartTVA", arguments(record_argument(*split, info.get())));
  });
}

TEST_F(FirstUse, AFaultByName) {
  refuse_all(velmosav::fault_code(Fault::DivisionByZero), [](const FreshLibrary& library) {
    ComPtr<IDispatch> tools;
    if (const HRESULT code = library.create<::Outil>(tools); FAILED(code)) return code;
    return call_by_name(*tools.get(), L"DLL_GetAmountHTByTTC", arguments(Variant(-100L), Variant(120L)));
  });
}

TEST_F(FirstUse, TypeInformation) {
  refuse_all(S_OK, [](const FreshLibrary& library) {
    ComPtr<IDispatch> rights;
    if (const HRESULT code = library.create<::Droits>(rights); FAILED(code)) return code;
    ComPtr<ITypeInfo> type;
    return rights->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.receive());
  });
}

}  // namespace
