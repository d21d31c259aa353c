// An invoice as a page: its XML, transformed by the platform's DOM with facture.xsl.
#pragma once

#include <msxml2.h>

#include <filesystem>

#include "com_support.h"
#include "input.h"

namespace facturation {

class Preview {
 public:
  /// Loads the style sheet; throws ComFailure when it is missing or wrong.
  explicit Preview(const std::filesystem::path& style_sheet);

  /// Writes the page of an invoice whose prices are before tax or tax included.
  void write(const Text& xml, Tarif tarif, const std::filesystem::path& path) const;

 private:
  ComPtr<IXMLDOMDocument> style_sheet_;
};

}  // namespace facturation
