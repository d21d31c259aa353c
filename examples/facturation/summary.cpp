#include "summary.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "console.h"

namespace facturation {
namespace {

constexpr std::size_t kMaxRows = 200;
constexpr std::size_t kMaxClientWidth = 34;
constexpr std::size_t kColumns = 6;
constexpr std::size_t kTextColumns = 2;
constexpr const char* kNoBreakBlank = "\u00A0";

using Row = std::array<std::string, kColumns>;

std::string shortened(const std::string& text) {
  if (width(text) <= kMaxClientWidth) return text;
  std::size_t kept = 0;
  for (std::size_t characters = 0; characters < kMaxClientWidth - 1; ++characters) {
    do ++kept;
    while ((text[kept] & 0xC0) == 0x80);
  }
  return text.substr(0, kept) + "…";
}

std::string grouped(long long value) {
  std::string text = std::to_string(value);
  for (std::size_t place = text.size(); place > 3;) {
    place -= 3;
    text.insert(place, kNoBreakBlank);
  }
  return text;
}

Row row_of(std::string code, std::string client, long long lines, const Totals& totals) {
  return {std::move(code),        std::move(client),       grouped(lines),
          amount_text(totals.ht), amount_text(totals.tva), amount_text(totals.ttc)};
}

std::string line_text(const Row& row, const std::array<std::size_t, kColumns>& widths) {
  std::string line;
  for (std::size_t i = 0; i < kColumns; ++i) {
    const std::string padding(widths[i] - width(row[i]), ' ');
    if (i) line += "  ";
    line += i < kTextColumns ? row[i] + padding : padding + row[i];
  }
  return line + "\n";
}

}  // namespace

std::string amount_text(double amount) {
  const long long cents = std::llround(std::abs(amount) * 100);
  const long long rest = cents % 100;
  return (amount < 0 && cents ? "-" : "") + grouped(cents / 100) + "," + (rest < 10 ? "0" : "") +
         std::to_string(rest);
}

std::string table_text(const std::vector<InvoiceSummary>& invoices) {
  Totals totals;
  long long lines = 0;
  for (const InvoiceSummary& invoice : invoices) {
    totals += invoice.totals;
    lines += invoice.lines;
  }
  std::vector<Row> rows{{"Facture", "Client", "Lignes", "HT", "TVA", "TTC"}};
  const std::size_t shown = std::min(invoices.size(), kMaxRows);
  for (std::size_t i = 0; i < shown; ++i) {
    const InvoiceSummary& invoice = invoices[i];
    rows.push_back(row_of(invoice.code, shortened(invoice.client), invoice.lines, invoice.totals));
  }
  rows.push_back(row_of(
      "Total",
      grouped(static_cast<long long>(invoices.size())) + (invoices.size() > 1 ? " factures" : " facture"),
      lines, totals));

  std::array<std::size_t, kColumns> widths{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], width(row[i]));
  }
  Row rule;
  for (std::size_t i = 0; i < kColumns; ++i) rule[i] = std::string(widths[i], '-');

  std::string text = line_text(rows.front(), widths) + line_text(rule, widths);
  for (std::size_t i = 1; i + 1 < rows.size(); ++i) text += line_text(rows[i], widths);
  if (shown < invoices.size())
    text += "… et " + grouped(static_cast<long long>(invoices.size() - shown)) + " autres factures\n";
  return text + line_text(rule, widths) + line_text(rows.back(), widths);
}

std::string contracts_text(const std::vector<ContractLine>& contracts) {
  std::size_t code_width = 0;
  for (const ContractLine& line : contracts) code_width = std::max(code_width, width(line.code));
  std::string text;
  for (std::size_t i = 0; i < std::min(contracts.size(), kMaxRows); ++i) {
    const ContractLine& line = contracts[i];
    text += line.code + std::string(code_width - width(line.code) + 2, ' ');
    text += (line.rule.empty() ? "En une fois" : line.rule) + " (" + grouped(line.instalments) +
            (line.instalments > 1 ? " échéances)\n" : " échéance)\n");
  }
  return text;
}

std::string times_text(const std::vector<TimeLine>& times) {
  std::string text;
  for (std::size_t i = 0; i < std::min(times.size(), kMaxRows); ++i) {
    text += times[i].intervention + "  " + times[i].spent.time + "  " + times[i].spent.technician + "\n";
  }
  return text;
}

}  // namespace facturation
