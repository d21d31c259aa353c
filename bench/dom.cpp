#include "dom.h"

#include "measure.h"

namespace bench {
namespace {

CLSID dom_class() {
  CLSID found{};
  for (const wchar_t* name :
       {L"MSXML2.DOMDocument.4.0", L"MSXML2.DOMDocument.6.0", L"MSXML2.DOMDocument.3.0"}) {
    if (SUCCEEDED(CLSIDFromProgID(name, &found))) return found;
  }
  must(REGDB_E_CLASSNOTREG, "DOMDocument");
  return found;
}

const host::Text& invoice_name() {
  static const host::Text name(L"INVOICE");
  return name;
}

host::ComPtr<IXMLDOMElement> make(IXMLDOMDocument& document, const Element& element) {
  host::ComPtr<IXMLDOMElement> made;
  must(document.createElement(element.name, made.receive()), "createElement");
  if (SysStringLen(element.text) != 0) must(made->put_text(element.text), "text");
  for (const auto& [name, value] : element.attributes) {
    VARIANT text;  // borrowed
    text.vt = VT_BSTR;
    text.bstrVal = value;
    must(made->setAttribute(name, text), "setAttribute");
  }
  for (const Element& child : element.children) {
    must(made->appendChild(make(document, child).get(), nullptr), "appendChild");
  }
  return made;
}

/// The elements among the children of a node.
std::vector<host::ComPtr<IXMLDOMElement>> children_of(IXMLDOMNode& node) {
  std::vector<host::ComPtr<IXMLDOMElement>> elements;
  host::ComPtr<IXMLDOMNode> child;
  node.get_firstChild(child.receive());
  while (child) {
    host::ComPtr<IXMLDOMElement> element;
    if (SUCCEEDED(child->QueryInterface(IID_IXMLDOMElement, element.receive_void()))) {
      elements.push_back(element);
    }
    host::ComPtr<IXMLDOMNode> next;
    child->get_nextSibling(next.receive());
    child = next;
  }
  return elements;
}

Element description_of(IXMLDOMElement& element) {
  Element description;
  must(element.get_nodeName(&description.name), "nodeName");
  host::ComPtr<IXMLDOMNamedNodeMap> attributes;
  must(element.get_attributes(attributes.receive()), "attributes");
  long count = 0;
  attributes->get_length(&count);
  for (long i = 0; i < count; ++i) {
    host::ComPtr<IXMLDOMNode> attribute;
    must(attributes->get_item(i, attribute.receive()), "item");
    auto& [name, value] = description.attributes.emplace_back();
    must(attribute->get_nodeName(&name), "nodeName");
    must(attribute->get_text(&value), "text");
  }
  for (const auto& child : children_of(element)) description.children.push_back(description_of(*child.get()));
  if (description.children.empty()) must(element.get_text(&description.text), "text");
  return description;
}

}  // namespace

host::Text LoadedInvoice::serialise() const {
  host::Text written;
  must(root_->get_xml(&written), "xml");
  return written;
}

void LoadedInvoice::append(const Element& element) const {
  must(root_->appendChild(make(*document_.get(), element).get(), nullptr), "appendChild");
}

std::vector<Element> LoadedInvoice::elements_from(std::size_t place) const {
  std::vector<Element> descriptions;
  const auto elements = children_of(*root_.get());
  for (std::size_t i = place; i < elements.size(); ++i)
    descriptions.push_back(description_of(*elements[i].get()));
  return descriptions;
}

BareDom::BareDom() {
  must(CoGetClassObject(dom_class(), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                        factory_.receive_void()),
       "CoGetClassObject");
}

host::ComPtr<IXMLDOMDocument> BareDom::create_document() const {
  host::ComPtr<IXMLDOMDocument> document;
  must(factory_->CreateInstance(nullptr, IID_IXMLDOMDocument, document.receive_void()), "DOMDocument");
  document->put_async(VARIANT_FALSE);
  document->put_validateOnParse(VARIANT_FALSE);
  document->put_resolveExternals(VARIANT_FALSE);
  document->put_preserveWhiteSpace(VARIANT_TRUE);
  return document;
}

LoadedInvoice BareDom::create() const {
  auto document = create_document();
  host::ComPtr<IXMLDOMElement> root;
  must(document->createElement(invoice_name(), root.receive()), "createElement");
  return {std::move(document), host::ComPtr<IXMLDOMNode>::copy(root.get())};
}

LoadedInvoice BareDom::load(const host::Text& xml) const {
  auto document = create_document();
  VARIANT_BOOL loaded = VARIANT_FALSE;
  must(document->loadXML(xml, &loaded), "loadXML");
  if (!loaded) must(E_FAIL, "loadXML");
  host::ComPtr<IXMLDOMNode> root;
  must(document->selectSingleNode(invoice_name(), root.receive()), "selectSingleNode");
  return {std::move(document), std::move(root)};
}

}  // namespace bench
