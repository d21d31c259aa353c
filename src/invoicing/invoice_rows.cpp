#include "invoicing/invoice_rows.h"

#include <optional>

#include "automation/attempt.h"
#include "automation/late_bound.h"
#include "automation/number_text.h"
#include "companion/companion.h"
#include "tools/object_address.h"

namespace velmosav {
namespace {

Bstr text_of(CY amount) {
  Bstr text;
  check_conversion(VarBstrFromCy(amount, LOCALE_USER_DEFAULT, 0, text.receive()));
  return text;
}

Bstr text_of(VARIANT_BOOL value) { return to_text(Variant(value != VARIANT_FALSE).get()); }

/// The rate that the host's object knows for a code; none without an object, and when the object fails.
std::optional<double> vat_rate(long vat_object, int code) {
  double rate = -1;
  if (vat_object > -1) {
    attempt([&] {
      const ComPtr<IDispatch> object = object_at(vat_object);
      rate = to_double(HostObject(object.get()).get(L"GetTauxTva", Variant(static_cast<short>(code))).get());
    });
  }
  return rate > -1 ? std::optional(rate) : std::nullopt;
}

Bstr rate_text(const std::optional<double>& rate) { return rate ? number_text(*rate) : Bstr(); }

Bstr share_label(const std::optional<double>& rate, int code) {
  constexpr std::wstring_view kLabel = L"Quote-part montant soumis à TVA ";
  if (!rate) return concat({kLabel, L"n°", whole_number_text(code).view()});
  return concat({kLabel, fixed_number_text(companion::round_amount(*rate, 2), 2).view(), L"%"});
}

}  // namespace

XmlElement InvoiceRows::start(RowLevel level, std::wstring_view type) const {
  const InvoiceXMLLibConstants& names = invoice_.names();
  XmlElement row = invoice_.make_element(names.m_pc_XInv_ROW);
  invoice_.add_attribute(row, names.m_pc_XInv_RANK, whole_number_text(number_).view());
  invoice_.add_attribute(row, names.m_pc_XInv_LEVEL, level == RowLevel::Document ? L"1" : L"2");
  invoice_.add_attribute(row, names.m_pc_XInv_TYPE, type);
  if (!origin_type_.empty() && !origin_code_.view().empty()) {
    invoice_.add_origin(row, origin_code_.view(), origin_type_);
  }
  return row;
}

void InvoiceRows::add_vat_code(const XmlElement& row, int code, std::wstring_view rate) const {
  const InvoiceXMLLibConstants& names = invoice_.names();
  const XmlElement element = invoice_.make_element(names.m_pc_XInv_CODETVA, whole_number_text(code).view());
  invoice_.add_attribute(element, names.m_pc_XInv_RATETVA, rate);
  invoice_.append(row, element);
}

void InvoiceRows::write_text(RowLevel level, std::wstring_view type, std::wstring_view text) const {
  const XmlElement row = start(level, type);
  invoice_.add_element(row, invoice_.names().m_pc_XInv_DESIGNATION, text);
  finish(row);
}

void InvoiceRows::write_article(const Type_LigneArticle& article, bool invoiced) const {
  const InvoiceXMLLibConstants& names = invoice_.names();
  const XmlElement row = start(RowLevel::Consumption, view(article.TypeLigne));
  const auto add = [&](std::wstring_view name, std::wstring_view text) {
    invoice_.add_element(row, name, text);
  };
  add(names.m_pc_XInv_CODEELEM, view(article.CodeArt));
  add(names.m_pc_XInv_DESIGNATION, view(article.Libelle));
  add(names.m_pc_XInv_QTY, number_text(article.Qte).view());
  add(names.m_pc_XInv_COST, text_of(article.Pr).view());
  if (invoiced) {
    add(names.m_pc_XInv_DISCOUNTRATE, number_text(article.Remise).view());
    add(names.m_pc_XInv_PRICE, text_of(article.PrixUnit).view());
    add(names.m_pc_XInv_PVFIXE, text_of(article.PVFixe).view());
  } else {
    add(names.m_pc_XInv_DISCOUNTRATE, L"0");
    add(names.m_pc_XInv_PRICE, L"0");
  }
  add(names.m_pc_XInv_VALORISAMT, view(article.Valorisation));
  add(names.m_pc_XInv_CODEUNIT, view(article.UniteMes));
  add(names.m_pc_XInv_EQUIVSTK, number_text(article.EquivStock).view());
  add(names.m_pc_XInv_CPT, {});
  add_vat_code(row, article.CodeTva, rate_text(vat_rate(vat_object_, article.CodeTva)).view());
  finish(row);
}

void InvoiceRows::write_vat_share(const Type_LigneRepartTVA& share, int code, const BSTR& account) const {
  const InvoiceXMLLibConstants& names = invoice_.names();
  const std::optional<double> rate = vat_rate(vat_object_, code);
  const XmlElement row = start(RowLevel::Document, initial<AchatVenteConstants>.m_PC_TypLig_NRef);
  const auto add = [&](std::wstring_view name, std::wstring_view text) {
    invoice_.add_element(row, name, text);
  };
  add(names.m_pc_XInv_PRICE, number_text(share.MontantBase).view());
  add(names.m_pc_XInv_QTY, L"1");
  add(names.m_pc_XInv_DESIGNATION, share_label(rate, code).view());
  add(names.m_pc_XInv_CPT, view(account));
  add_vat_code(row, code, rate_text(rate).view());
  finish(row);
}

void InvoiceRows::advance() const { number_ = narrow_to_short(number_ + 1LL); }

}  // namespace velmosav
