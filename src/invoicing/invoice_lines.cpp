#include "invoicing/invoice_lines.h"

#include <string>

#include "amounts/vat_table.h"
#include "automation/array_lock.h"
#include "automation/date_text.h"
#include "automation/number_text.h"
#include "companion/companion.h"
#include "invoicing/invoice_rows.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

constexpr std::wstring_view kFromIntervention = L"INTERVENTION";
constexpr std::wstring_view kFromContract = L"CONTRAT";

std::wstring_view text_line() { return initial<AchatVenteConstants>.m_PC_TypLig_Texte; }

Bstr short_date(BSTR date) { return format_date_text(view(date), initial<ApiGeneralConstants>.m_FMT_DATE); }

/// A text row that takes a number.
void add_text(const InvoiceRows& rows, RowLevel level, std::wstring_view type, std::wstring_view text) {
  rows.write_text(level, type, text);
  rows.advance();
}

std::wstring joined_address(const Type_AdresseTiers& address) {
  std::wstring text;
  for (const BSTR part : {address.Adr, address.AdrSuite, address.CP, address.Ville}) {
    if (is_blank(view(part))) continue;
    if (!text.empty()) text.append(L" - ");
    text.append(view(part));
  }
  return text;
}

void add_intervention_heading(const InvoiceRows& rows, const Type_Bon& intervention) {
  add_text(rows, RowLevel::Document, rows.names().m_PC_TypLig_Tranche,
           concat({L"Intervention du ", short_date(intervention.DateDeb).view()}).view());
  const std::wstring_view site = view(intervention.Adr.NomSite);
  if (!is_blank(site)) {
    add_text(rows, RowLevel::Document, text_line(), concat({L"Site d'intervention : ", site}).view());
  }
  const std::wstring address = joined_address(intervention.Adr);
  if (!address.empty()) add_text(rows, RowLevel::Document, text_line(), address);
  add_text(rows, RowLevel::Document, text_line(), view(intervention.Libelle));
}

/// What the contract covers: shown at no price, then a blank line.
void add_covered_articles(const InvoiceRows& rows, const ArrayView<Type_LigneArticle>& articles,
                          std::wstring_view invoiced_situation) {
  bool headed = false;
  for (long i = 0; i < articles.end(); ++i) {
    const Type_LigneArticle& article = articles[i];
    if (view(article.TypeLigne) == text_line() || view(article.Situation) == invoiced_situation) continue;
    if (!headed) {
      add_text(rows, RowLevel::Consumption, rows.names().m_PC_TypLig_Tranche,
               L"Consommations / Opérations prises en charge");
      headed = true;
    }
    rows.write_article(article, false);
    rows.advance();
  }
  add_text(rows, RowLevel::Document, text_line(), L" ");
}

/// What is invoiced. Every article takes a number, written or not: a covered one leaves a gap.
void add_invoiced_articles(const InvoiceRows& rows, const ArrayView<Type_LigneArticle>& articles,
                           std::wstring_view invoiced_situation) {
  bool headed = false;
  for (long i = 0; i < articles.end(); ++i) {
    const Type_LigneArticle& article = articles[i];
    const bool is_text = view(article.TypeLigne) == text_line();
    if (!headed && !is_text) {
      add_text(rows, RowLevel::Consumption, rows.names().m_PC_TypLig_Tranche,
               L"Consommations / Opérations facturées");
      headed = true;
    }
    if (is_text) {
      rows.write_text(RowLevel::Consumption, text_line(), view(article.Libelle));
    } else if (is_blank(invoiced_situation) || view(article.Situation) == invoiced_situation) {
      rows.write_article(article, true);
    }
    rows.advance();
  }
}

Bstr period_text(std::wstring_view opening, BSTR start, BSTR end) {
  return concat({opening, short_date(start).view(), L" au ", short_date(end).view()});
}

void add_vat_shares(const InvoiceRows& rows, const Type_CadencierFact& row, const BSTR& account) {
  const short highest = companion::highest_vat_code();
  for (int code = 0; code <= highest; ++code) {
    const Type_LigneRepartTVA& share = line_of(row.RepartTva, code);
    if (!(share.Pourcent > 0)) continue;
    rows.write_vat_share(share, code, account);
    rows.advance();
  }
}

}  // namespace

Bstr add_intervention_lines(const InvoiceXMLLibConstants& names, DomFactory& dom,
                            const Type_Bon& intervention, BSTR xml, long vat_object,
                            std::wstring_view invoiced_situation, short& number) {
  const InvoiceDocument invoice(names, dom, xml);
  if (!invoice.has_root()) return {};
  const InvoiceRows rows(invoice, kFromIntervention, Bstr(view(intervention.Code)), vat_object, number);
  const ArrayView<Type_LigneArticle> articles(intervention.TabArticle);
  const ArrayLock lock(intervention.TabArticle);

  add_intervention_heading(rows, intervention);
  if (!invoiced_situation.empty()) add_covered_articles(rows, articles, invoiced_situation);
  add_invoiced_articles(rows, articles, invoiced_situation);
  return invoice.text();
}

Bstr add_instalment_lines(const InvoiceXMLLibConstants& names, DomFactory& dom, const Type_Contrat& contract,
                          short instalment, BSTR xml, long vat_object, short& number) {
  const InvoiceDocument invoice(names, dom, xml);
  if (!invoice.has_root()) return {};
  const Type_CadencierFact& row = ArrayView<Type_CadencierFact>(contract.TabCadFact)[instalment];
  const ArrayLock lock(contract.TabCadFact);
  const InvoiceRows rows(invoice, kFromContract, whole_number_text(row.NumAuto), vat_object, number);

  add_text(rows, RowLevel::Document, names.m_PC_TypLig_Tranche,
           concat({L"Contrat n°", view(contract.Code), L", facturation prévue au ",
                   short_date(row.DateFact).view()})
               .view());
  if (!is_blank(view(contract.LibelleFact))) {
    add_text(rows, RowLevel::Document, text_line(), view(contract.LibelleFact));
  }
  add_text(rows, RowLevel::Document, text_line(),
           period_text(L"Période de validité du ", contract.DateDeb, contract.DateFin).view());
  add_text(rows, RowLevel::Document, text_line(),
           period_text(L"Facturation de la période du ", row.DateDeb, row.DateFin).view());
  add_vat_shares(rows, row, contract.Compte);
  return invoice.text();
}

}  // namespace velmosav
