// A DOM whose documents refuse one of their settings: the call fails with the DOM's own code, and the
// document is given back.
#include <array>
#include <cstdint>
#include <cstring>

#include "invoicing/invoice_fixture.h"

namespace {

constexpr HRESULT kRefusal = E_ACCESSDENIED;

using Setting = HRESULT (STDMETHODCALLTYPE IXMLDOMDocument::*)(VARIANT_BOOL);
constexpr std::array<Setting, 4> kSettings{&IXMLDOMDocument::put_async, &IXMLDOMDocument::put_validateOnParse,
                                           &IXMLDOMDocument::put_resolveExternals,
                                           &IXMLDOMDocument::put_preserveWhiteSpace};

/// A setting's place in the table of functions.
std::size_t slot_of(Setting setting) {
  std::uintptr_t distance = 0;  // from the table's start, and one more
  std::memcpy(&distance, &setting, sizeof distance);
  return distance / sizeof(void*);
}

/// A document that has its settings and nothing else: laid out as COM wants it, without the other functions.
class RefusingDocument {
  void** table_ = nullptr;  // first: what a caller's pointer leads to

 public:
  RefusingDocument() {
    table_ = functions_.data();
    functions_[1] = reinterpret_cast<void*>(add_reference);
    functions_[2] = reinterpret_cast<void*>(release);
  }
  RefusingDocument(const RefusingDocument&) = delete;
  RefusingDocument& operator=(const RefusingDocument&) = delete;

  void refuse_only(Setting refused) {
    for (const Setting setting : kSettings) {
      functions_[slot_of(setting)] = reinterpret_cast<void*>(setting == refused ? refuse : accept);
    }
  }
  long references = 0;

 private:
  static ULONG STDMETHODCALLTYPE add_reference(RefusingDocument* document) {
    return static_cast<ULONG>(++document->references);
  }
  static ULONG STDMETHODCALLTYPE release(RefusingDocument* document) {
    return static_cast<ULONG>(--document->references);
  }
  static HRESULT STDMETHODCALLTYPE accept(RefusingDocument*, VARIANT_BOOL) { return S_OK; }
  static HRESULT STDMETHODCALLTYPE refuse(RefusingDocument*, VARIANT_BOOL) { return kRefusal; }

  std::array<void*, 128> functions_{};
};

/// In the place of the DOM's class.
class RefusingDom final : public IClassFactory {
 public:
  explicit RefusingDom(RefusingDocument& document) : document_(document) {
    CLSID dom;
    EXPECT_EQ(S_OK, CLSIDFromProgID(L"MSXML2.DOMDocument.4.0", &dom));
    EXPECT_EQ(S_OK, CoRegisterClassObject(dom, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &place_));
  }
  ~RefusingDom() { CoRevokeClassObject(place_); }
  RefusingDom(const RefusingDom&) = delete;
  RefusingDom& operator=(const RefusingDom&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
    EXPECT_EQ(IID_IXMLDOMDocument, iid);
    ++document_.references;
    *object = &document_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  RefusingDocument& document_;
  DWORD place_ = 0;
};

TEST(RefusingDomTest, WhicheverSettingItRefuses_FailsWithItsCodeAndGetsTheDocumentBack) {
  RefusingDocument document;
  RefusingDom dom(document);
  auto contract = host::sample_contract();
  for (const Setting refused : kSettings) {
    document.refuse_only(refused);
    // An instance keeps the DOM's class that it has found.
    const auto invoices = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
    short line = 7;
    host::Text result(L"avant");
    host::take_error();
    EXPECT_EQ(kRefusal, invoices->AddCttToInvoiceXML(contract, 0, nullptr, -1, &line, &result));
    EXPECT_NE(L"", host::take_error().description);
    EXPECT_EQ(L"", result.str());
    EXPECT_EQ(7, line);
    EXPECT_EQ(0, document.references);
  }
}

}  // namespace
