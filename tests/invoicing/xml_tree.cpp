#include "invoicing/xml_tree.h"

#include "support/host.h"

#include <msxml2.h>

namespace host {
namespace {

std::wstring value_of(IXMLDOMNode* node) {
  Variant value;
  EXPECT_EQ(S_OK, node->get_nodeValue(value.receive()));
  return value.get().vt == VT_BSTR ? get(value.get().bstrVal) : std::wstring();
}

std::wstring name_of(IXMLDOMNode* node) {
  Bstr name;
  EXPECT_EQ(S_OK, node->get_nodeName(name.receive()));
  return std::wstring(name.view());
}

void read_attributes(IXMLDOMNode* node, XmlNode& result) {
  ComPtr<IXMLDOMNamedNodeMap> attributes;
  if (node->get_attributes(attributes.receive()) != S_OK) return;
  ComPtr<IXMLDOMNode> attribute;
  for (long i = 0; attributes->get_item(i, attribute.receive()) == S_OK && attribute; ++i) {
    result.attributes.emplace_back(name_of(attribute.get()), value_of(attribute.get()));
  }
}

XmlNode read(IXMLDOMNode* node) {
  XmlNode result;
  result.name = name_of(node);
  read_attributes(node, result);
  ComPtr<IXMLDOMNode> child;
  node->get_firstChild(child.receive());
  while (child) {
    DOMNodeType type = NODE_INVALID;
    child->get_nodeType(&type);
    if (type == NODE_ELEMENT) result.children.push_back(read(child.get()));
    if (type == NODE_TEXT || type == NODE_CDATA_SECTION) result.text += value_of(child.get());
    ComPtr<IXMLDOMNode> next;
    child->get_nextSibling(next.receive());
    child = std::move(next);
  }
  if (!result.children.empty()) {
    // Indentation between elements says nothing; any other text there would be a fault of the builder.
    const bool stray = result.text.find_first_not_of(L" \t\r\n") != std::wstring::npos;
    if (stray) result.children.push_back({L"#text", {}, result.text, {}});
    result.text.clear();
  }
  return result;
}

std::string shown(std::wstring_view text) {
  std::wstring result;
  for (const wchar_t letter : text) {
    if (letter == L'\n') {
      result += L"\\n";
    } else if (letter == L'\r') {
      result += L"\\r";
    } else {
      result += letter;
    }
  }
  return utf8(result);
}

void write(const XmlNode& node, std::size_t level, std::string& result) {
  result.append(2 * level, ' ').append(utf8(node.name));
  for (const auto& [name, value] : node.attributes) result += " " + utf8(name) + "=\"" + shown(value) + "\"";
  if (!node.text.empty()) result += " = " + shown(node.text);
  result += "\n";
  for (const XmlNode& child : node.children) write(child, level + 1, result);
}

}  // namespace

const XmlNode& XmlNode::child(std::wstring_view child_name) const {
  static const XmlNode none;
  for (const XmlNode& node : children) {
    if (node.name == child_name) return node;
  }
  ADD_FAILURE() << "no element " << utf8(child_name) << " in\n" << outline(*this);
  return none;
}

std::wstring XmlNode::attribute(std::wstring_view attribute_name) const {
  for (const auto& [found, value] : attributes) {
    if (found == attribute_name) return value;
  }
  ADD_FAILURE() << "no attribute " << utf8(attribute_name) << " in\n" << outline(*this);
  return {};
}

std::vector<const XmlNode*> XmlNode::children_named(std::wstring_view child_name) const {
  std::vector<const XmlNode*> result;
  for (const XmlNode& node : children) {
    if (node.name == child_name) result.push_back(&node);
  }
  return result;
}

std::vector<std::wstring> XmlNode::child_names() const {
  std::vector<std::wstring> result;
  for (const XmlNode& node : children) result.push_back(node.name);
  return result;
}

XmlNode parse_xml(std::wstring_view text) {
  CLSID class_id;
  EXPECT_EQ(S_OK, CLSIDFromProgID(L"MSXML2.DOMDocument", &class_id));
  ComPtr<IXMLDOMDocument> document;
  EXPECT_EQ(S_OK, CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                   document.receive_void()));
  if (!document) return {};
  document->put_async(VARIANT_FALSE);
  document->put_preserveWhiteSpace(VARIANT_TRUE);
  VARIANT_BOOL loaded = VARIANT_FALSE;
  document->loadXML(Text(text), &loaded);
  ComPtr<IXMLDOMElement> root;
  if (loaded) document->get_documentElement(root.receive());
  if (!root) {
    ADD_FAILURE() << "not well-formed: \"" << utf8(text) << '"';
    return {};
  }
  return read(root.get());
}

std::string outline(const XmlNode& node) {
  std::string result;
  write(node, 0, result);
  return result;
}

std::vector<std::string> rows_of(std::wstring_view invoice) {
  std::vector<std::string> result;
  for (const XmlNode& row : row_nodes(invoice)) {
    result.push_back(utf8(row.attribute(L"RANK")) + " " + utf8(row.attribute(L"LEVEL")) + " " +
                     utf8(row.attribute(L"TYPE")) + ": " + shown(row.child(L"DESIGNATION").text));
  }
  return result;
}

std::vector<XmlNode> row_nodes(std::wstring_view invoice) {
  std::vector<XmlNode> result;
  XmlNode root = parse_xml(invoice);
  for (XmlNode& node : root.children) {
    if (node.name == L"ROW") result.push_back(std::move(node));
  }
  return result;
}

}  // namespace host
