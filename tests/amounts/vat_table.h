// The host's VAT table as the tests script it, a distribution that is read with it, and the comparison of
// whole records.
#pragma once

#include <map>
#include <memory>

#include "support/fake_object.h"
#include "support/records.h"

namespace host {

/// A table object with the members EnrTva(code), FormatTVA and FormatTVANonMulti. An unknown code fails.
class VatTable {
 public:
  /// Codes 1 to 5 at 20, 10, 5.5, 2.1 and 19.6 percent, accounts "445711" and "445781" (and so on), formats
  /// "{TVA}" and "{TVAM}"; and a code 0 at 50 percent that nothing may read.
  static VatTable standard();

  VatTable();
  void add(short code, double rate, std::wstring_view account, std::wstring_view collection_account);
  FakeObject& table() { return *table_.operator->(); }
  FakeObject& entry(short code) { return *entries_->at(code).operator->(); }
  /// The argument clsTVA.
  IDispatch** argument() { return &argument_; }

 private:
  using Entries = std::map<short, ComPtr<FakeObject>>;

  ComPtr<FakeObject> table_;
  std::shared_ptr<Entries> entries_;
  IDispatch* argument_;
};

/// What ReadRepartTVA answered.
struct Reading {
  HRESULT result = S_OK;
  short code = 0;
  Record<Type_RepartTVA> record;
};

struct ReadOptions {
  short code = 1;
  double pivot = 0;
  const wchar_t* kind = nullptr;  // null: left out
  short decimals = 2;
};

Reading read_distribution(VatTable& table, const Text& text, const ReadOptions& options = {});

/// An empty record with the rates, accounts and formats of the standard table.
Record<Type_RepartTVA> standard_rates();
void set_line(Type_RepartTVA& record, int code, double percentage, double base = 0, double vat = 0);

/// Compares whole records, texts included.
void expect_same(const Type_RepartTVA& expected, const Type_RepartTVA& actual);

}  // namespace host
