// The XML invoice as an element tree: one INVOICE element, grown call by call. Each call parses the text of
// the one before into a document of its own and returns the text of the INVOICE element.
//
// White space is kept; a text that does not keep to the bounds counts as one that does not load.
#pragma once

#include "automation/platform.h"

#include <msxml2.h>

#include "automation/com_ptr.h"
#include "automation/text.h"
#include "constants/constant_sets.h"

namespace velmosav {

/// The DOM in use is the first of these that is registered.
inline constexpr const wchar_t* kDomVersions[] = {L"MSXML2.DOMDocument.4.0", L"MSXML2.DOMDocument.6.0",
                                                  L"MSXML2.DOMDocument.3.0"};

using XmlElement = ComPtr<IXMLDOMElement>;

/// Makes the documents of one instance. The DOM's class is looked up in the registry once, at the first
/// document: that takes longer than making one.
class DomFactory {
 public:
  /// Fault 429 when the platform has no DOM.
  [[nodiscard]] ComPtr<IXMLDOMDocument> create_document();

 private:
  ComPtr<IClassFactory> factory_;
};

class InvoiceDocument {
 public:
  /// `names`: the instance's element and attribute names, read at each use. `xml`: the invoice built so far,
  /// empty for a new one.
  InvoiceDocument(const InvoiceXMLLibConstants& names, DomFactory& dom, BSTR xml);

  /// False when the text does not load or has no INVOICE at its top.
  [[nodiscard]] bool has_root() const noexcept { return static_cast<bool>(root_); }
  [[nodiscard]] const XmlElement& root() const noexcept { return root_; }
  [[nodiscard]] const InvoiceXMLLibConstants& names() const noexcept { return names_; }

  /// A new element outside the tree; an empty text leaves it empty.
  [[nodiscard]] XmlElement make_element(std::wstring_view name, std::wstring_view text = {}) const;
  void append(const XmlElement& parent, const XmlElement& child) const;
  void add_element(const XmlElement& parent, std::wstring_view name, std::wstring_view text) const;
  void add_attribute(const XmlElement& element, std::wstring_view name, std::wstring_view text) const;
  /// The source document: code as text, type as attribute.
  void add_origin(const XmlElement& parent, std::wstring_view code, std::wstring_view type) const;

  /// Text of the INVOICE element, without outer blanks.
  [[nodiscard]] Bstr text() const;

 private:
  void load(BSTR xml);

  const InvoiceXMLLibConstants& names_;
  ComPtr<IXMLDOMDocument> document_;
  XmlElement root_;
};

}  // namespace velmosav
