// Random distributions and amounts: the library through COM against the literal transcription, record by
// record. The seed is printed; VELMOSAV_TEST_SEED in the environment repeats a run.
#include <cmath>

#include "amounts/literal_distribution.h"
#include "amounts/vat_table.h"
#include "support/chance.h"

namespace {

using namespace host;

double random_amount(Chance& chance) {
  const double sign = chance.one_in(4) ? -1 : 1;
  switch (chance.number(0, 6)) {
    case 0:
      return 0;
    case 1:
      return sign * chance.number(0, 20'000'000) / 1000;  // halves of a cent
    case 2:
      return sign * chance.number(0, 1'000'000) / 64;  // exact in binary form
    case 3:
      return sign * chance.real(0, 1e12);
    case 4:
      return sign * chance.real(0, 0.1);
    default:
      return sign * chance.number(0, 100'000'000) / 100;
  }
}

double random_rate(Chance& chance) {
  if (chance.one_in(400)) return chance.of<double>({-100, 1e300, -99.5});
  return chance.of<double>({20, 20, 10, 5.5, 2.1, 19.6, 8.5, 0, 33.333, 100.0 / 7});
}

short random_decimals(Chance& chance) {
  if (chance.one_in(200)) return chance.of<short>({-1, 256, 255, -3});
  return static_cast<short>(chance.one_in(3) ? chance.number(0, 6) : 2);
}

std::wstring random_share(Chance& chance) {
  const std::wstring mark = chance.one_in(2) ? L"." : L",";
  const std::wstring whole = std::to_wstring(chance.number(0, 60));
  switch (chance.number(0, 7)) {
    case 0:
      return L"0";
    case 1:
      return whole;
    case 2:
      return L"33" + mark + L"3333333333333";
    case 3:
      return L"-" + whole + mark + L"5";
    case 4:
      return whole + L" " + whole + mark + L"00";
    default:
      return whole + mark + std::to_wstring(chance.number(10, 99));
  }
}

std::wstring random_text(Chance& chance) {
  if (chance.one_in(12)) return std::wstring(static_cast<std::size_t>(chance.number(0, 3)), L' ');
  std::wstring text;
  const int highest = chance.one_in(3) ? 99 : 8;
  for (int pairs = chance.number(1, 7); pairs > 0; --pairs) {
    int code = chance.number(0, highest);
    if (chance.one_in(150)) code = chance.of<int>({-1, 100, 255, 256, 40000});
    text += chance.one_in(300) ? L"tva" : std::to_wstring(code);
    text += L"@" + random_share(chance) + L"@";
  }
  if (chance.one_in(10)) text.pop_back();
  return text;
}

/// The same table for both sides.
struct Tables {
  VatTable host;
  literal::VatTable literal;
};

Tables random_tables(Chance& chance) {
  Tables tables;
  for (short code = 0; code <= 99; ++code) {
    if (code > 8 && chance.one_in(2)) continue;
    literal::VatEntry entry{random_rate(chance), L"4457" + std::to_wstring(code),
                            L"4458" + std::to_wstring(code)};
    tables.host.add(code, entry.rate, entry.account, entry.collection_account);
    if (chance.one_in(15)) {
      entry.rate_readable = false;
      tables.host.entry(code).property(L"TauxTva", null_value());
    }
    if (chance.one_in(15)) {
      entry.accounts_readable = false;
      tables.host.entry(code).property(L"Compte", null_value());
      tables.host.entry(code).property(L"CompteEnc", null_value());
    }
    tables.literal.entries[code] = entry;
  }
  tables.literal.format = L"{TVA}";
  tables.literal.format_not_multiple = L"{TVAM}";
  tables.host.table().property(L"FormatTVA", text_value(L"{TVA}"));
  tables.host.table().property(L"FormatTVANonMulti", text_value(L"{TVAM}"));
  return tables;
}

struct Pivot {
  double amount;
  std::wstring kind;
  bool kind_given;
  short decimals;
};

Pivot random_pivot(Chance& chance) {
  const bool given = !chance.one_in(3);
  return {random_amount(chance), given ? chance.of<std::wstring>({L"H", L"T", L"T", L"D", L"h", L""}) : L"H",
          given, random_decimals(chance)};
}

/// Reads a random text, spreads another pivot over the record, writes it back: three comparisons.
void compare_one(Chance& chance, _TvaRepart* object, Tables& tables) {
  const std::wstring text = random_text(chance);
  Pivot pivot = random_pivot(chance);
  const auto first_code = static_cast<short>(chance.number(0, 99));
  SCOPED_TRACE(utf8(text) + " kind " + utf8(pivot.kind) + " code " + std::to_string(first_code) +
               " decimals " + std::to_string(pivot.decimals) + " pivot " + std::to_string(pivot.amount));

  Record<Type_RepartTVA> expected, actual;
  short expected_code = first_code;
  short code = first_code;
  const HRESULT expected_result = literal::outcome_of([&] {
    literal::read_distribution(text, tables.literal, pivot.amount, pivot.kind, pivot.decimals, expected_code,
                               *expected);
  });
  const Variant kind = pivot.kind_given ? text_value(pivot.kind) : missing();
  ASSERT_EQ(expected_result, object->ReadRepartTVA(tables.host.argument(), &code, Text(text), pivot.amount,
                                                   kind.get(), pivot.decimals, actual));
  ASSERT_EQ(expected_code, code);
  if (FAILED(expected_result)) return;
  ASSERT_EQ(std::vector<std::string>(), differences(*expected, *actual));

  pivot = random_pivot(chance);
  const Variant second_kind = pivot.kind_given ? text_value(pivot.kind) : missing();
  double expected_total = 0;
  double total = 0;
  const HRESULT spread_result = literal::outcome_of(
      [&] { expected_total = literal::spread_amount(*expected, pivot.amount, pivot.kind, pivot.decimals); });
  ASSERT_EQ(spread_result, object->GetAmountByRepartTVA(tables.host.argument(), actual, pivot.amount,
                                                        second_kind.get(), pivot.decimals, &total))
      << pivot.amount << " kind " << utf8(pivot.kind) << " decimals " << pivot.decimals;
  ASSERT_EQ(expected_total, total);
  ASSERT_EQ(std::vector<std::string>(), differences(*expected, *actual));

  Text written;
  ASSERT_EQ(S_OK, object->WriteRepartTVA(actual, &code, &written));
  ASSERT_EQ(written, literal::write_distribution(*expected, expected_code));
  ASSERT_EQ(expected_code, code);
}

TEST(TvaRepart, RandomDistributionsAgreeWithTheLiteralSteps) {
  Chance chance;
  const auto object = create<_TvaRepart>(L"TvaRepart");
  for (int round = 0; round < 40 && !HasFatalFailure(); ++round) {
    Tables tables = random_tables(chance);
    for (int i = 0; i < 100 && !HasFatalFailure(); ++i) compare_one(chance, object.get(), tables);
  }
  EXPECT_FALSE(HasFatalFailure()) << "seed " << chance.seed();
}

TEST(Outil, RandomAmountsAgreeWithTheLiteralSteps) {
  Chance chance;
  const auto outil = create<_Outil>(L"Outil");
  for (int i = 0; i < 20000; ++i) {
    const double rate = random_rate(chance);
    const double amount = random_amount(chance);
    const auto decimals = static_cast<BYTE>(chance.one_in(4) ? chance.number(0, 12) : 2);
    const std::wstring kind = chance.of<std::wstring>({L"H", L"T", L"h", L"t", L"D", L""});
    SCOPED_TRACE("seed " + std::to_string(chance.seed()));

    const auto agree = [&](const char* name, auto&& steps, auto&& method) {
      double expected = 0;
      double result = 0;
      const HRESULT outcome = literal::outcome_of([&] { expected = steps(); });
      ASSERT_EQ(outcome, method(&result)) << name << " " << rate << " % of " << amount;
      ASSERT_EQ(expected, result) << name << " " << rate << " % of " << amount << " at " << int{decimals};
      ASSERT_EQ(std::signbit(expected), std::signbit(result)) << name << " " << rate << " % of " << amount;
    };
    agree(
        "HT of TTC", [&] { return literal::amount_ht_by_ttc(rate, amount, decimals); },
        [&](double* result) { return outil->DLL_GetAmountHTByTTC(rate, amount, decimals, result); });
    agree(
        "TTC of HT", [&] { return literal::amount_ttc_by_ht(rate, amount, decimals); },
        [&](double* result) { return outil->DLL_GetAmountTTCByHT(rate, amount, decimals, result); });
    agree(
        "grossed up", [&] { return literal::amount_discounted(amount, rate, decimals); },
        [&](double* result) { return outil->DLL_GetAmountDiscounted(amount, rate, decimals, result); });
    agree(
        "VAT", [&] { return literal::amount_tva(rate, amount, kind, decimals); },
        [&](double* result) { return outil->DLL_GetAmountTVA(rate, amount, Text(kind), decimals, result); });
    if (HasFatalFailure()) return;
  }
}

TEST(Outil, RandomValuesAreRoundedAsTheirDecimalTextIs) {
  Chance chance;
  const auto outil = create<_Outil>(L"Outil");
  for (int i = 0; i < 50000; ++i) {
    const double value =
        chance.one_in(2) ? random_amount(chance) : std::ldexp(chance.real(-1, 1), chance.number(-60, 60));
    const auto decimals = static_cast<BYTE>(chance.number(0, 20));
    double result = 0;
    double again = 0;
    ASSERT_EQ(S_OK, outil->DLL_GetAmountTTCByHT(0, value, decimals, &result));
    ASSERT_EQ(literal::round_amount(value, decimals), result)
        << "seed " << chance.seed() << ": " << value << " at " << int{decimals};
    ASSERT_EQ(S_OK, outil->DLL_GetAmountTTCByHT(0, result, decimals, &again));
    ASSERT_EQ(result, again) << "seed " << chance.seed() << ": " << value << " at " << int{decimals};
  }
}

}  // namespace
