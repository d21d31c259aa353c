#include "preview.h"

#include <fstream>

namespace facturation {
namespace {

void require(HRESULT result, VARIANT_BOOL done, std::string_view operation) {
  if (FAILED(result) || !done) throw ComFailure(std::string(operation) + " : échec");
}

ComPtr<IXMLDOMDocument> new_document() {
  ComPtr<IXMLDOMDocument> document;
  for (const wchar_t* version :
       {L"MSXML2.DOMDocument.6.0", L"MSXML2.DOMDocument.4.0", L"MSXML2.DOMDocument.3.0"}) {
    CLSID clsid;
    if (SUCCEEDED(CLSIDFromProgID(version, &clsid)) &&
        SUCCEEDED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                   reinterpret_cast<void**>(document.receive())))) {
      document->put_async(VARIANT_FALSE);
      // A row whose text is a blank keeps it.
      document->put_preserveWhiteSpace(VARIANT_TRUE);
      return document;
    }
  }
  throw ComFailure("aucun document XML (MSXML) sur ce poste");
}

/// The XML does not say on which base it is priced: the page is told by an attribute of the root.
void set_tariff(IXMLDOMDocument& invoice, Tarif tarif) {
  ComPtr<IXMLDOMElement> root;
  invoice.get_documentElement(root.receive());
  VARIANT value{};
  const Text letter(tarif == Tarif::Ht ? "H" : "T");
  value.vt = VT_BSTR;
  value.bstrVal = letter.get();
  const Text name("TARIF");
  require(root ? root->setAttribute(name.get(), value) : E_FAIL, VARIANT_TRUE, "facture sans élément racine");
}

}  // namespace

Preview::Preview(const std::filesystem::path& style_sheet) : style_sheet_(new_document()) {
  const Text path(std::wstring_view(style_sheet.wstring()));
  VARIANT source{};
  source.vt = VT_BSTR;
  source.bstrVal = path.get();
  VARIANT_BOOL loaded = VARIANT_FALSE;
  const HRESULT result = style_sheet_->load(source, &loaded);
  require(result, loaded, "feuille de style " + to_utf8(style_sheet.wstring()));
}

void Preview::write(const Text& xml, Tarif tarif, const std::filesystem::path& path) const {
  const ComPtr<IXMLDOMDocument> invoice = new_document();
  VARIANT_BOOL loaded = VARIANT_FALSE;
  const HRESULT result = invoice->loadXML(xml.get(), &loaded);
  require(result, loaded, "lecture de la facture pour l'aperçu");
  set_tariff(*invoice.get(), tarif);
  Text page;
  require(invoice->transformNode(style_sheet_.get(), page.receive()), VARIANT_TRUE,
          "mise en page de la facture");
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << to_utf8(page.view());
  file.close();
  if (!file) throw std::runtime_error("impossible d'écrire " + to_utf8(path.wstring()));
}

}  // namespace facturation
