// Random dates and rules, through the library and through the literal rules: the answers, the faults and the
// variables by reference must agree. The seed is printed; VELMOSAV_TEST_SEED repeats a run.
#include <map>
#include <random>

#include "dates/literal_recurrence.h"
#include "dates/recurrence_fixture.h"
#include "support/chance.h"

namespace {

using namespace host;
using literal::Outcome;

Outcome outcome_of(HRESULT code, const Text& result) {
  if (code == S_OK) return {0, result.str()};
  constexpr unsigned long kFaults = 0x800A0000UL;
  return {static_cast<int>(static_cast<unsigned long>(code) - kFaults), {}};
}

std::string text_of(const VARIANT& value) {
  Variant text;
  if (FAILED(VariantChangeType(text.receive(), const_cast<VARIANT*>(&value), 0, VT_BSTR))) {
    return "type " + std::to_string(value.vt);
  }
  return "type " + std::to_string(value.vt) + " \"" + utf8(get(text.get().bstrVal)) + '"';
}

class RandomRules {
 public:
  explicit RandomRules(unsigned seed) : engine_(seed) {}

  int between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(engine_); }
  bool chance(int of) { return between(1, of) == 1; }
  bool coin() { return chance(2); }

  /// Mostly a date; often one that its month does not have; sometimes a text that is none.
  std::wstring date() {
    const int day = chance(3) ? between(28, 31) : between(1, 31);
    const int month = chance(40) ? between(0, 14) : between(1, 12);
    const int year = between(1901, 2098);
    const auto number = [&](int value) { return chance(6) ? std::to_wstring(value) : two_digits(value); };
    std::wstring text =
        number(day) + L"/" + number(month) + L"/" + (chance(3) ? two_digits(year) : std::to_wstring(year));
    if (chance(25)) text += L" 08:15";
    if (chance(30)) text[static_cast<std::size_t>(between(0, static_cast<int>(text.size()) - 1))] = strange();
    return text;
  }

  Record<Type_Periodicite> rule() {
    Record<Type_Periodicite> record;
    set(record->Periodicite, chance(12) ? one_of(L"QHAm") : L"M");
    record->TousLes = static_cast<short>(coin() ? 0 : between(-30, 60));
    set(record->Le, chance(8) ? L"" : one_of(L"PDTQRpdtqrX"));
    set(record->Jour, chance(12) ? some_of(L"LMEJVSDX ", 0, 2) : one_of(L"LMEJVSDlmejvsd"));
    set(record->Mois, some_of(L"JFMAIULOSCNDjfa X", 0, chance(3) ? 12 : 3));
    return record;
  }

  Variant month() {
    if (chance(12)) return missing();
    const int number = chance(20) ? between(0, 14) : between(1, 12);
    return in_some_type(number, [&] { return two_digits(number); });
  }

  Variant year() {
    if (chance(12)) return missing();
    const int number = chance(6) ? between(0, 99) : between(1901, 2098);
    return in_some_type(number, [&] { return chance(20) ? L"an" : std::to_wstring(number); });
  }

 private:
  template <class Text>
  Variant in_some_type(int number, const Text& text) {
    switch (between(0, 3)) {
      case 0:
        return Variant(static_cast<short>(number));
      case 1:
        return Variant(static_cast<double>(number));
      case 2:
        return text_value(text());
      default:
        return Variant(static_cast<long>(number));
    }
  }
  wchar_t strange() { return std::wstring_view(L"/ -.:xé0139")[static_cast<std::size_t>(between(0, 10))]; }
  std::wstring one_of(std::wstring_view letters) { return some_of(letters, 1, 1); }
  std::wstring some_of(std::wstring_view letters, int least, int most) {
    std::wstring text;
    for (int count = between(least, most); count > 0; --count) {
      text += letters[static_cast<std::size_t>(between(0, static_cast<int>(letters.size()) - 1))];
    }
    return text;
  }

  std::mt19937 engine_;
};

std::string description(const Type_Periodicite& rule) {
  return "every " + std::to_string(rule.TousLes) + ", Le \"" + utf8(get(rule.Le)) + "\", Jour \"" +
         utf8(get(rule.Jour)) + "\", Mois \"" + utf8(get(rule.Mois)) + '"';
}

/// An outcome in a failure's text.
std::string shown(const Outcome& outcome) {
  return outcome.fault != 0 ? "fault " + std::to_string(outcome.fault) : '"' + utf8(outcome.text) + '"';
}

/// How often each fault (0: none) was met: a comparison that meets only one kind says little.
using Tally = std::map<int, int>;

TEST(PeriodiciteRandom, CheckDate_AgreesWithTheLiteralRule) {
  const Recurrence object;
  const unsigned seed = chosen_seed();
  RandomRules random(seed);
  int changed = 0;
  constexpr int kRuns = 30000;
  for (int i = 0; i < kRuns; ++i) {
    const std::wstring date = random.date();
    const Outcome expected = literal::check_date(date);
    Text result;
    const Outcome answered = outcome_of(object->CheckDate(Text(date), &result), result);
    if (expected.text != date) ++changed;
    ASSERT_EQ(shown(expected), shown(answered)) << "seed " << seed << ": " << utf8(date);
  }
  EXPECT_GT(changed, kRuns / 50);
}

TEST(PeriodiciteRandom, LastDayOfMonth_AgreesWithTheLiteralRule) {
  const Recurrence object;
  const unsigned seed = chosen_seed();
  RandomRules random(seed);
  Tally tally;
  constexpr int kRuns = 20000;
  for (int i = 0; i < kRuns; ++i) {
    auto month = static_cast<short>(random.chance(20) ? random.between(-1, 14) : random.between(1, 12));
    Variant year = random.year();
    Variant literal_year;
    ASSERT_EQ(S_OK, VariantCopy(literal_year.receive(), &year.get()));
    const std::string told = std::to_string(month) + "/" + text_of(year.get());
    const Outcome expected = literal::last_day_of_month(month, literal_year);
    Text result;
    const Outcome answered = outcome_of(object->LastDayOfMonth(&month, &year.get(), &result), result);
    ++tally[expected.fault];
    ASSERT_EQ(shown(expected), shown(answered)) << "seed " << seed << ": " << told;
    ASSERT_EQ(text_of(literal_year.get()), text_of(year.get())) << "seed " << seed << ": " << told;
  }
  EXPECT_GT(tally[0], kRuns / 2);
  EXPECT_GT(tally[13], 0);
}

TEST(PeriodiciteRandom, GetPrevNextMonth_AgreesWithTheLiteralRule) {
  const Recurrence object;
  const unsigned seed = chosen_seed();
  RandomRules random(seed);
  Tally tally;
  constexpr int kRuns = 60000;
  for (int i = 0; i < kRuns; ++i) {
    Text origin(random.date());
    auto record = random.rule();
    VARIANT_BOOL back = velmosav::to_variant_bool(random.coin());
    const Outcome expected = literal::prev_next_month(origin.str(), *record, back != VARIANT_FALSE);
    Text result;
    const Outcome answered =
        outcome_of(object->GetPrevNextMonth(origin.in_out(), record, &back, &result), result);
    ++tally[expected.fault];
    ASSERT_EQ(shown(expected), shown(answered))
        << "seed " << seed << ": " << utf8(origin.str()) << (back ? " back, " : ", ") << description(*record);
  }
  EXPECT_GT(tally[0], kRuns / 2);
  EXPECT_GT(tally[13], kRuns / 100);
}

TEST(PeriodiciteRandom, GetDateOfDay_AgreesWithTheLiteralRule) {
  const Recurrence object;
  const unsigned seed = chosen_seed();
  RandomRules random(seed);
  Tally tally;
  constexpr int kRuns = 30000;
  for (int i = 0; i < kRuns; ++i) {
    auto record = random.rule();
    Variant month = random.month();
    Variant year = random.year();
    Variant literal_month;
    Variant literal_year;
    ASSERT_EQ(S_OK, VariantCopy(literal_month.receive(), &month.get()));
    ASSERT_EQ(S_OK, VariantCopy(literal_year.receive(), &year.get()));
    const std::string told = text_of(month.get()) + " / " + text_of(year.get()) + ", " + description(*record);
    const Outcome expected = literal::date_of_day(*record, literal_month, literal_year);
    Text result;
    const Outcome answered =
        outcome_of(object->GetDateOfDay(record, &month.get(), &year.get(), &result), result);
    ++tally[expected.fault];
    ASSERT_EQ(shown(expected), shown(answered)) << "seed " << seed << ": " << told;
    ASSERT_EQ(text_of(literal_month.get()), text_of(month.get())) << "seed " << seed << ": " << told;
    ASSERT_EQ(text_of(literal_year.get()), text_of(year.get())) << "seed " << seed << ": " << told;
  }
  EXPECT_GT(tally[0], kRuns / 2);
  EXPECT_GT(tally[5], kRuns / 100);
  EXPECT_GT(tally[13], kRuns / 100);
}

}  // namespace
