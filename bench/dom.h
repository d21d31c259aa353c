// The bare DOM: the platform's documents as the library sets them, with nothing added.
#pragma once

#include <objbase.h>
#include <msxml2.h>

#include <utility>
#include <vector>

#include "support/host.h"

namespace bench {

/// An element to make: its name and text, its attributes, the elements inside.
struct Element {
  host::Text name;
  host::Text text;
  std::vector<std::pair<host::Text, host::Text>> attributes;
  std::vector<Element> children;
};

/// A document that holds an invoice, with its top element.
class LoadedInvoice {
 public:
  LoadedInvoice(host::ComPtr<IXMLDOMDocument> document, host::ComPtr<IXMLDOMNode> root)
      : document_(std::move(document)), root_(std::move(root)) {}

  [[nodiscard]] host::Text serialise() const;
  /// Makes an element at the end of the top element.
  void append(const Element& element) const;
  /// The elements of the top element from a place on.
  [[nodiscard]] std::vector<Element> elements_from(std::size_t place) const;

 private:
  host::ComPtr<IXMLDOMDocument> document_;
  host::ComPtr<IXMLDOMNode> root_;
};

/// Makes documents of the DOM that the library takes, the first that is registered; its class is looked up
/// once.
class BareDom {
 public:
  BareDom();

  /// A new document that loads a text, and the selection of its top element.
  [[nodiscard]] LoadedInvoice load(const host::Text& xml) const;
  /// A new document with an empty invoice.
  [[nodiscard]] LoadedInvoice create() const;

 private:
  [[nodiscard]] host::ComPtr<IXMLDOMDocument> create_document() const;

  host::ComPtr<IClassFactory> factory_;
};

}  // namespace bench
