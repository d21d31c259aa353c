// Writing single rows of the XML invoice.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <utility>

#include "automation/text.h"
#include "invoicing/invoice_document.h"

namespace velmosav {

enum class RowLevel { Document, Consumption };

/// Rows of one source document. A row's rank is the number at that moment; the caller moves the number on.
class InvoiceRows {
 public:
  InvoiceRows(const InvoiceDocument& invoice, std::wstring_view origin_type, Bstr origin_code,
              long vat_object, short& number)
      : invoice_(invoice),
        origin_type_(origin_type),
        origin_code_(std::move(origin_code)),
        vat_object_(vat_object),
        number_(number) {}

  void write_text(RowLevel level, std::wstring_view type, std::wstring_view text) const;
  /// An article that is not invoiced is shown at no price.
  void write_article(const Type_LigneArticle& article, bool invoiced) const;
  /// The share of an instalment under one VAT code.
  void write_vat_share(const Type_LigneRepartTVA& share, int code, const BSTR& account) const;

  /// The next number; fault 6 beyond 32767.
  void advance() const;

  [[nodiscard]] const InvoiceXMLLibConstants& names() const { return invoice_.names(); }

 private:
  [[nodiscard]] XmlElement start(RowLevel level, std::wstring_view type) const;
  void finish(const XmlElement& row) const { invoice_.append(invoice_.root(), row); }
  void add_vat_code(const XmlElement& row, int code, std::wstring_view rate) const;

  const InvoiceDocument& invoice_;
  std::wstring_view origin_type_;
  Bstr origin_code_;
  long vat_object_;
  short& number_;
};

}  // namespace velmosav
