// An XML text read back as a tree, by the platform's own DOM with white space preserved.
//
// Comparisons are made on trees: the serialised form (indentation, quotes, character references) is the DOM's
// affair and differs between its versions.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

struct XmlNode {
  std::wstring name;
  std::vector<std::pair<std::wstring, std::wstring>> attributes;  // in document order
  std::wstring text;                                              // of an element without child elements
  std::vector<XmlNode> children;  // elements; stray text among them is "#text"

  /// First child of that name; the test fails when there is none.
  [[nodiscard]] const XmlNode& child(std::wstring_view child_name) const;
  /// The test fails when there is no such attribute.
  [[nodiscard]] std::wstring attribute(std::wstring_view attribute_name) const;
  [[nodiscard]] std::vector<const XmlNode*> children_named(std::wstring_view child_name) const;
  [[nodiscard]] std::vector<std::wstring> child_names() const;
};

/// The root element; the test fails when the text is not well-formed.
XmlNode parse_xml(std::wstring_view text);

/// A tree as lines such as `  CODETVA RATE="20" = 1`, two blanks a level; no ` = ` for an empty text.
/// Line ends in texts show as \r and \n.
std::string outline(const XmlNode& node);

/// The rows of an invoice as "rank level type: designation".
std::vector<std::string> rows_of(std::wstring_view invoice);

/// The ROW elements themselves.
std::vector<XmlNode> row_nodes(std::wstring_view invoice);

}  // namespace host
