#include "invoices.h"

#include <cstdio>
#include <limits>

namespace facturation {
namespace {

const std::string& client_of(const DueLine& line) {
  return line.contract ? line.contract->input.nom_client : line.order->input.nom_client;
}

Tarif tariff_of(const DueLine& line) {
  return line.contract ? line.contract->input.tarif : line.order->input.tarif;
}

// Ranks may leave gaps: the rows themselves are counted. Markup in a text is escaped.
int count_rows(const Text& xml, const Text& row_element) {
  const std::wstring tag = L"<" + std::wstring(row_element.view()) + L" ";
  int count = 0;
  for (std::size_t at = xml.view().find(tag); at != std::wstring_view::npos;
       at = xml.view().find(tag, at + tag.size()))
    ++count;
  return count;
}

Totals totals_of(const DueLine& line) {
  if (line.order) return line.order->totals;
  const auto rows = elements<Type_CadencierFact>(line.contract->record.TabCadFact);
  return totals_of(rows[static_cast<std::size_t>(line.instalment)], line.contract->input.tarif);
}

}  // namespace

InvoiceWriter::InvoiceWriter(Library& library, VatTable& table, Problems& problems,
                             std::filesystem::path folder, std::string date, const Preview* preview)
    : library_(library),
      table_(table),
      problems_(problems),
      folder_(std::move(folder)),
      date_(std::move(date)),
      preview_(preview),
      files_(folder_) {}

void InvoiceWriter::write(const std::vector<DueLine>& lines,
                          const std::function<void(std::size_t)>& advance) {
  std::size_t ticked = 0;
  for (const DueLine& line : lines) ticked += line.ticked;
  if (ticked == 0) return;
  // Rows of the grid are numbered on 16 bits.
  if (lines.size() > std::numeric_limits<short>::max())
    throw std::runtime_error("trop de lignes à facturer ensemble : " + std::to_string(lines.size()));

  Grid grid(lines, library_.codes());
  library_.group(grid.value());
  if (grid.rows() != ticked) throw ComFailure("RegroupementFacture : des lignes ont été perdues");

  for (std::size_t row = 0; row < ticked;) {
    std::vector<const DueLine*> documents;
    do {
      documents.push_back(&lines[grid.line_of(row)]);
      ++row;
    } while (row < ticked &&
             library_.same_invoice(grid.value(), static_cast<short>(row - 1), static_cast<short>(row)));
    char code[32];
    std::snprintf(code, sizeof code, "FA%s-%04d", date_.substr(6).c_str(), ++last_number_);
    try {
      invoices_.push_back(make(code, documents));
    } catch (const ComFailure& failure) {
      problems_.add("facture", "client " + client_of(*documents[0]) + " : " + failure.what());
      --last_number_;  // invoice numbers leave no gap
    }
    advance(documents.size());
  }
  files_.finish();
}

InvoiceSummary InvoiceWriter::make(const std::string& code, const std::vector<const DueLine*>& documents) {
  InvoiceSummary summary{code, client_of(*documents[0]), 0, {}};
  Text xml = start(*documents[0], code);
  short line = 0;
  for (const DueLine* document : documents) {
    const short before = line;
    xml = document->contract
              ? library_.add(document->contract->record, document->instalment, xml, table_.pointer(), line)
              : library_.add(document->order->record, xml, table_.pointer(),
                             Text(std::wstring_view(kSituationFacture)), line);
    if (xml.empty() || line <= before) throw ComFailure("la bibliothèque n'a ajouté aucune ligne");
    summary.totals += totals_of(*document);
  }
  summary.lines = count_rows(xml, library_.codes().row_element);
  if (preview_) preview_->write(xml, tariff_of(*documents[0]), folder_ / (code + ".html"));
  files_.add(code, std::move(xml));
  return summary;
}

Text InvoiceWriter::start(const DueLine& first, const std::string& code) {
  const Text label("Facturation du " + date_ + "\r\n" + client_of(first));
  Text xml = first.contract ? library_.head(first.contract->record, label, Text(code), Text(date_))
                            : library_.head(first.order->record, first.order->facturation, label, Text(code),
                                            Text(date_));
  if (xml.empty()) throw ComFailure("la bibliothèque a rendu un en-tête vide");
  return xml;
}

}  // namespace facturation
