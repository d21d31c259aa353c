#include "invoicing/invoice_document.h"

#include "automation/fault.h"
#include "automation/variant.h"
#include "invoicing/invoice_bounds.h"

namespace velmosav {
namespace {

/// The DOM in use: the first that is registered, decided once per process.
const CLSID& dom_class() {
  struct Choice {
    CLSID clsid;
    bool found;
  };
  static const Choice choice = [] {
    for (const wchar_t* version : kDomVersions) {
      CLSID clsid;
      const HRESULT code = CLSIDFromProgID(version, &clsid);
      if (SUCCEEDED(code)) return Choice{clsid, true};
      if (code == E_OUTOFMEMORY) raise(code);  // decided another time
    }
    return Choice{CLSID_NULL, false};
  }();
  if (!choice.found) raise(Fault::CannotCreateObject);
  return choice.clsid;
}

}  // namespace

ComPtr<IXMLDOMDocument> DomFactory::create_document() {
  forget_error_information();
  if (!factory_) {
    check(CoGetClassObject(dom_class(), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                           factory_.receive_void()));
  }
  ComPtr<IXMLDOMDocument> document;
  check(factory_->CreateInstance(nullptr, IID_IXMLDOMDocument, document.receive_void()));
  check(document->put_async(VARIANT_FALSE));
  check(document->put_validateOnParse(VARIANT_FALSE));
  check(document->put_resolveExternals(VARIANT_FALSE));
  check(document->put_preserveWhiteSpace(VARIANT_TRUE));
  return document;
}

InvoiceDocument::InvoiceDocument(const InvoiceXMLLibConstants& names, DomFactory& dom, BSTR xml)
    : names_(names), document_(dom.create_document()) {
  if (view(xml).empty()) {
    root_ = make_element(names_.m_pc_XInv_INV);
  } else if (keeps_to_bounds(view(xml))) {
    load(xml);
  }
}

void InvoiceDocument::load(BSTR xml) {
  VARIANT_BOOL loaded = VARIANT_FALSE;
  check(document_->loadXML(xml, &loaded));
  if (!loaded) return;
  LentText name(names_.m_pc_XInv_INV.view());
  ComPtr<IXMLDOMNode> node;
  check(document_->selectSingleNode(name.get(), node.receive()));
  if (node) check(node->QueryInterface(IID_IXMLDOMElement, root_.receive_void()));
}

XmlElement InvoiceDocument::make_element(std::wstring_view name, std::wstring_view text) const {
  LentText tag(name);
  XmlElement element;
  check(document_->createElement(tag.get(), element.receive()));
  if (!text.empty()) {
    LentText content(text);
    check(element->put_text(content.get()));
  }
  return element;
}

void InvoiceDocument::append(const XmlElement& parent, const XmlElement& child) const {
  check(parent->appendChild(child.get(), nullptr));
}

void InvoiceDocument::add_element(const XmlElement& parent, std::wstring_view name,
                                  std::wstring_view text) const {
  append(parent, make_element(name, text));
}

void InvoiceDocument::add_attribute(const XmlElement& element, std::wstring_view name,
                                    std::wstring_view text) const {
  LentText attribute(name);
  LentText content(text);
  if (name.empty()) {
    // Not every version's setAttribute refuses an empty name, as this does: the text could not be read again.
    ComPtr<IXMLDOMAttribute> refused;
    check(document_->createAttribute(attribute.get(), refused.receive()));
  }
  VARIANT value;  // borrows the text
  value.vt = VT_BSTR;
  value.bstrVal = content.get();
  check(element->setAttribute(attribute.get(), value));
}

void InvoiceDocument::add_origin(const XmlElement& parent, std::wstring_view code,
                                 std::wstring_view type) const {
  const XmlElement origin = make_element(names_.m_pc_XInv_ORIGINE, code);
  add_attribute(origin, names_.m_pc_XInv_TYPE, type);
  append(parent, origin);
}

Bstr InvoiceDocument::text() const {
  Bstr xml;
  check(root_->get_xml(xml.receive()));
  const std::wstring_view trimmed = trim(xml.view());
  return trimmed.size() == xml.view().size() ? std::move(xml) : Bstr(trimmed);
}

}  // namespace velmosav
