// Two threads meet at the first use of what is set up once: the second waits for the first.
#include <atomic>
#include <thread>

#include "memory/documents.h"
#include "memory/event.h"
#include "memory/fresh_library.h"
#include "support/import_table.h"

namespace {

using namespace host;

/// The look-up of the DOM's class lasts until someone waits for it.
struct Meeting {
  static inline const Event* looking;
  static inline const Event* waiting;
  static inline std::atomic<int> lookups;
  static inline std::atomic<bool> was_awaited;

  static HRESULT WINAPI look_up(LPCOLESTR name, CLSID* clsid) {
    ++lookups;
    looking->set();
    was_awaited = waiting->comes();
    return CLSIDFromProgID(name, clsid);
  }
  static BOOL WINAPI wait(CONDITION_VARIABLE* condition, SRWLOCK* lock, DWORD time, ULONG flags) {
    waiting->set();
    return SleepConditionVariableSRW(condition, lock, time, flags);
  }
};

/// An invoice with a row of a contract, on a thread in an apartment of its own.
HRESULT write_invoice(const FreshLibrary& library, std::wstring& text) {
  CoInitialize(nullptr);
  HRESULT code;
  {
    ComPtr<_InvoiceXMLLib> invoices;
    code = library.create<::InvoiceXMLLib>(invoices);
    auto contract = billed_contract();
    short line = 0;
    Text result;
    if (SUCCEEDED(code)) code = invoices->AddCttToInvoiceXML(contract, 1, Text(), -1, &line, &result);
    text = result.str();
  }
  CoUninitialize();
  return code;
}

TEST(FirstUseOfTwo, TheDomIsChosenOnceAndBothInvoicesAreWritten) {
  const LibraryCopy copy;
  const FreshLibrary library(copy);
  const Event looking, waiting;
  Meeting::looking = &looking;
  Meeting::waiting = &waiting;
  const ReplacedImport look_up(library.module(), "CLSIDFromProgID", Meeting::look_up);
  const ReplacedImport wait(library.module(), "SleepConditionVariableSRW", Meeting::wait);

  HRESULT first_code = E_FAIL, second_code = E_FAIL;
  std::wstring first_text, second_text;
  std::thread first([&] { first_code = write_invoice(library, first_text); });
  EXPECT_TRUE(looking.comes());
  std::thread second([&] { second_code = write_invoice(library, second_text); });
  first.join();
  second.join();

  EXPECT_TRUE(Meeting::was_awaited);
  EXPECT_EQ(1, Meeting::lookups);
  EXPECT_EQ(S_OK, first_code);
  EXPECT_EQ(S_OK, second_code);
  EXPECT_NE(L"", first_text);
  EXPECT_EQ(first_text, second_text);
}

}  // namespace
