#include "amounts/vat_table.h"

namespace host {

VatTable::VatTable()
    : table_(FakeObject::make()), entries_(std::make_shared<Entries>()), argument_(table_.get()) {
  table_->on_get(L"EnrTva", [entries = entries_](const FakeObject::Arguments& arguments) {
    const short code = arguments.size() == 1 ? velmosav::to_short(arguments[0]) : short{-1};
    const auto entry = entries->find(code);
    if (entry == entries->end()) throw FakeObject::Error{E_FAIL, L"Hote", L"Code de TVA inconnu"};
    return object_value(entry->second.get());
  });
}

VatTable VatTable::standard() {
  VatTable table;
  const double rates[] = {50, 20, 10, 5.5, 2.1, 19.6};
  for (short code = 0; code < 6; ++code) {
    const std::wstring digit = std::to_wstring(code);
    table.add(code, rates[code], L"44571" + digit, L"44578" + digit);
  }
  table.table().property(L"FormatTVA", text_value(L"{TVA}"));
  table.table().property(L"FormatTVANonMulti", text_value(L"{TVAM}"));
  return table;
}

void VatTable::add(short code, double rate, std::wstring_view account, std::wstring_view collection_account) {
  auto entry = FakeObject::make();
  entry->property(L"TauxTva", Variant(rate));
  entry->property(L"Compte", text_value(account));
  entry->property(L"CompteEnc", text_value(collection_account));
  (*entries_)[code] = entry;
}

Reading read_distribution(VatTable& table, const Text& text, const ReadOptions& options) {
  Reading reading;
  reading.code = options.code;
  const Variant kind = options.kind ? text_value(options.kind) : missing();
  reading.result = create<_TvaRepart>(L"TvaRepart")
                       ->ReadRepartTVA(table.argument(), &reading.code, text, options.pivot, kind.get(),
                                       options.decimals, reading.record);
  return reading;
}

Record<Type_RepartTVA> standard_rates() {
  Record<Type_RepartTVA> record;
  const double rates[] = {0, 20, 10, 5.5, 2.1, 19.6};
  for (int code = 1; code < 6; ++code) {
    record->Lignes[code].TauxTva = rates[code];
    set(record->Lignes[code].Compte, L"44571" + std::to_wstring(code));
    set(record->Lignes[code].CompteEnc, L"44578" + std::to_wstring(code));
  }
  set(record->FormatTVA, L"{TVA}");
  set(record->FormatTVANonMulti, L"{TVAM}");
  return record;
}

void set_line(Type_RepartTVA& record, int code, double percentage, double base, double vat) {
  record.Lignes[code].Pourcent = percentage;
  record.Lignes[code].MontantBase = base;
  record.Lignes[code].MontantTVA = vat;
}

void expect_same(const Type_RepartTVA& expected, const Type_RepartTVA& actual) {
  EXPECT_EQ(std::vector<std::string>(), differences(expected, actual)) << "fields: expected / actual";
}

}  // namespace host
