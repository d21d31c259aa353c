// Random contracts, through the library by COM and through the literal rules: answers, faults, variables by
// reference and whole records must agree. The seed is printed; VELMOSAV_TEST_SEED repeats a run.
#include <cstdio>
#include <map>
#include <random>

#include "contracts/contract_fixture.h"
#include "contracts/literal_schedule.h"
#include "support/chance.h"

namespace {

using namespace host;

/// Contracts whose rows mostly follow each other, by a few days, with now and then a gap, an overlap or a
/// text that is no date.
class RandomSchedules {
 public:
  explicit RandomSchedules(unsigned seed) : engine_(seed) {}

  int between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(engine_); }
  bool chance(int of) { return between(1, of) == 1; }
  template <class T>
  T of(std::initializer_list<T> values) {
    return values.begin()[between(0, static_cast<int>(values.size()) - 1)];
  }

  /// A day of the calendar as a host may write it.
  std::wstring text(int day) {
    if (chance(100)) return of<const wchar_t*>({L"", L"  ", L"mars", L"00/01/2025", L"15/13/25x"});
    SYSTEMTIME parts{};
    VariantTimeToSystemTime(day, &parts);
    wchar_t text[40];
    const wchar_t* form = L"%02d/%02d/%04d";
    int year = parts.wYear;
    switch (between(0, 9)) {
      case 0:
      case 1:
      case 2:
      case 3:
        form = L"%02d/%02d/%02d";
        year %= 100;
        break;
      case 4:
        form = L"%d/%d/%d";
        break;
      case 5:
        if (chance(4)) form = L"%d-%02d-%04d";
        break;
      case 6:
        if (chance(4)) form = L"%02d/%02d/%04d 18:45";
        break;
      case 7:
        if (chance(4)) form = L" %02d/%02d/%04d ";
        break;
      default:
        break;
    }
    std::swprintf(text, std::size(text), form, int{parts.wDay}, int{parts.wMonth}, year);
    return text;
  }
  std::wstring any_text() { return text(between(kFirstDay, kLastDay)); }
  /// Near the days of the last contract.
  std::wstring near_text() { return text(day_ + between(-40, 40)); }

  /// A contract without schedule, with an empty one, or with up to eight rows.
  Record<Type_Contrat> contract(int transferred_one_in) {
    const int first =
        chance(4) ? between(turning_day_ - 120, turning_day_ + 40) : between(kFirstDay, kLastDay);
    const int count = between(0, 8);
    day_ = first;
    Record<Type_Contrat> record = chance(20) ? host::contract(L"", L"") : plain_contract();
    if (!chance(25))
      dimension<Type_CadencierFact>(record->TabCadFact, static_cast<unsigned long>(count), lower());
    for (int i = 0; record->TabCadFact && i < count; ++i) add_period(record, i, transferred_one_in);
    set(record->DateDeb, text(first + (chance(4) ? between(-60, 60) : 0)));
    const int end = chance(3) ? between(first, day_ + 20) : day_ + between(0, 400);
    set(record->DateFin, chance(4) ? std::wstring(of<const wchar_t*>({L"", L" "})) : text(end));
    day_ = (first + day_) / 2;
    return record;
  }

 private:
  // 1900 to 2099.
  static constexpr int kFirstDay = 1;
  static constexpr int kLastDay = 73000;

  /// Where the platform's two-digit years turn back a century.
  static int turning_day() {
    Text text(long_date(1, 1, last_two_digit_year() + 1));
    DATE day = 0;
    EXPECT_EQ(S_OK, VarDateFromStr(text, LOCALE_USER_DEFAULT, 0, &day));
    return static_cast<int>(day);
  }

  static Record<Type_Contrat> plain_contract() {
    Record<Type_Contrat> record;
    set(record->Code, L"CT0001");
    set(record->Vendeur, L"V1");
    set(record->TypeTypTarif, L"H");
    record->CodeTva = 3;
    record->RepartTva.Lignes[3].Pourcent = 100;
    set(record->RepartTva.Lignes[3].Compte, L"445713");
    return record;
  }

  long lower() { return chance(60) ? between(-1, 1) : 0; }

  void add_period(Record<Type_Contrat>& record, int index, int transferred_one_in) {
    Type_CadencierFact& line = row(record, static_cast<unsigned long>(index));
    const int length = chance(3) ? between(0, 2) : between(0, 45);
    line.NumEch = static_cast<short>(index);
    set(line.DateDeb, text(day_));
    set(line.DateFin, text(day_ + length));
    set(line.DateFact, text(day_ + between(-3, 3)));
    set(line.Libelle, L"Échéance " + std::to_wstring(index));
    line.MontantHT = index * 10.0;
    line.NumAuto = 100 + index;
    line.Transfere = velmosav::to_variant_bool(chance(transferred_one_in));
    set(line.codeFact, line.Transfere ? L"FA0001" : L"");
    day_ += length + 1 + (chance(6) ? between(-8, 8) : 0);
  }

  std::mt19937 engine_;
  const int turning_day_ = turning_day();
  int day_ = kFirstDay;
};

/// Every row and what the rules read of the contract, for a failure's text.
std::string description(const Type_Contrat& contract) {
  std::string text = "contract " + utf8(get(contract.DateDeb)) + " - " + utf8(get(contract.DateFin));
  if (!contract.TabCadFact) return text + ", no schedule";
  const SAFEARRAYBOUND bound = contract.TabCadFact->rgsabound[0];
  text += ", rows from " + std::to_string(bound.lLbound);
  for (unsigned long i = 0; i < bound.cElements; ++i) {
    const auto& line = element<Type_CadencierFact>(contract.TabCadFact, i);
    text += "\n  " + utf8(get(line.DateDeb)) + " - " + utf8(get(line.DateFin)) +
            (line.Transfere ? " transferred" : "");
  }
  return text;
}

/// How often each outcome was met: a comparison that meets only one kind says little.
using Tally = std::map<std::string, int>;

void count_outcome(Tally& tally, HRESULT code, short result, short unchanged) {
  if (code != S_OK) {
    ++tally["fault " + std::to_string(code & 0xFFFF)];
  } else {
    ++tally[result < 0 ? "refused" : result == unchanged ? "unchanged" : "changed"];
  }
}

void expect_met(Tally& tally, std::initializer_list<const char*> outcomes, int least) {
  for (const char* outcome : outcomes) EXPECT_GE(tally[outcome], least) << outcome;
}

TEST(ContratDocRandom, CadFact_SpreadPeriodDateEdition_AgreesWithTheLiteralSteps) {
  const unsigned seed = chosen_seed();
  RandomSchedules random(seed);
  const Contracts contracts;
  Tally tally;
  constexpr int kRuns = 6000;
  for (int i = 0; i < kRuns; ++i) {
    auto record = random.contract(12);
    auto expected = snapshot(*record);
    const auto edited = static_cast<short>(random.between(random.chance(40) ? -3 : 0, 9));
    const std::wstring date = random.chance(30) ? random.any_text() : random.near_text();
    const bool start = random.chance(2);

    short expected_result = 0;
    const HRESULT expected_code = literal::outcome_of(
        [&] { expected_result = literal::spread_period_date(*expected, edited, date, start); });
    SCOPED_TRACE("seed " + std::to_string(seed) + " run " + std::to_string(i) + ": row " +
                 std::to_string(edited) + (start ? " start " : " end ") + utf8(date) + ", " +
                 description(*record));
    short result = 0;
    ASSERT_EQ(expected_code, contracts->CadFact_SpreadPeriodDateEdition(
                                 record, edited, Text(date), velmosav::to_variant_bool(start), &result));
    ASSERT_EQ(expected_result, result);
    ASSERT_EQ(std::vector<std::string>(), differences(*expected, *record));
    count_outcome(tally, expected_code, expected_result, edited);
  }
  expect_met(tally, {"changed", "unchanged", "refused"}, kRuns / 20);
  expect_met(tally, {"fault 9", "fault 13"}, kRuns / 300);
}

TEST(ContratDocRandom, AjouterCadFactCtt_AgreesWithTheLiteralSteps) {
  const unsigned seed = chosen_seed();
  RandomSchedules random(seed);
  const Contracts contracts;
  Tally tally;
  constexpr int kRuns = 4000;
  for (int i = 0; i < kRuns; ++i) {
    auto record = random.contract(4);
    auto expected = snapshot(*record);
    const bool given = !random.chance(3);
    auto index = static_cast<short>(random.chance(2) ? -1 : random.between(random.chance(8) ? -4 : 0, 11));
    if (!given) index = -1;
    short expected_index = index;
    const std::wstring invoicing = random.near_text(), start = random.near_text(), end = random.near_text();

    short expected_result = 0;
    const HRESULT expected_code = literal::outcome_of(
        [&] { expected_result = literal::add_row(*expected, invoicing, start, end, expected_index); });
    SCOPED_TRACE("seed " + std::to_string(seed) + " run " + std::to_string(i) + ": index " +
                 std::to_string(index) + " end " + utf8(end) + ", " + description(*record));
    short result = 0;
    ASSERT_EQ(expected_code, contracts->AjouterCadFactCtt(record, Text(invoicing), Text(start), Text(end),
                                                          given ? &index : nullptr, &result));
    ASSERT_EQ(expected_result, result);
    if (given) {
      ASSERT_EQ(expected_index, index);
    }
    ASSERT_EQ(std::vector<std::string>(), differences(*expected, *record));
    count_outcome(tally, expected_code, expected_result, -99);
  }
  expect_met(tally, {"changed"}, kRuns / 2);
  expect_met(tally, {"refused", "fault 9", "fault 13"}, kRuns / 300);
}

TEST(ContratDocRandom, GetLastDatePeriode_AgreesWithTheLiteralSteps) {
  const unsigned seed = chosen_seed();
  RandomSchedules random(seed);
  const Contracts contracts;
  Tally tally;
  constexpr int kRuns = 2000;
  for (int i = 0; i < kRuns; ++i) {
    auto record = random.contract(4);
    const auto before = snapshot(*record);
    const bool transferred = random.chance(2);
    const std::wstring fallback = random.chance(3) ? L"" : random.any_text();

    std::wstring expected;
    const HRESULT expected_code =
        literal::outcome_of([&] { expected = literal::last_period_date(*record, transferred, fallback); });
    SCOPED_TRACE("seed " + std::to_string(seed) + " run " + std::to_string(i) +
                 (transferred ? " transferred " : " any ") + utf8(fallback) + ", " + description(*record));
    Text result;
    ASSERT_EQ(expected_code, contracts->GetLastDatePeriode(record, velmosav::to_variant_bool(transferred),
                                                           Text(fallback), &result));
    ASSERT_EQ(utf8(expected), utf8(result.str()));
    ASSERT_EQ(std::vector<std::string>(), differences(*before, *record));
    ++tally[expected_code != S_OK              ? "fault"
            : expected == fallback             ? "fallback"
            : expected == get(record->DateDeb) ? "contract"
                                               : "row"];
  }
  expect_met(tally, {"row", "fallback", "contract"}, kRuns / 100);
}

TEST(ContratDocRandom, SetDateByDuree_AgreesWithTheLiteralSteps) {
  const unsigned seed = chosen_seed();
  RandomSchedules random(seed);
  const Contracts contracts;
  Tally tally;
  constexpr int kRuns = 20000;
  for (int i = 0; i < kRuns; ++i) {
    const std::wstring start = random.any_text();
    const std::wstring unit =
        random.of<const wchar_t*>({L"J", L"S", L"M", L"M", L"A", L"X", L"m", L"", L" "});
    const long duration = random.chance(40)   ? random.between(-4000000, 4000000)
                          : random.chance(30) ? 0
                                              : random.between(-60, 400);

    std::wstring expected;
    const HRESULT expected_code =
        literal::outcome_of([&] { expected = literal::date_by_duration(start, duration, unit); });
    SCOPED_TRACE("seed " + std::to_string(seed) + " run " + std::to_string(i) + ": " + utf8(start) + " " +
                 std::to_string(duration) + " " + utf8(unit));
    Text result;
    ASSERT_EQ(expected_code, contracts->SetDateByDuree(Text(start), duration, Text(unit), &result));
    ASSERT_EQ(utf8(expected), utf8(result.str()));
    ++tally[expected_code != S_OK ? "fault" : expected == start ? "as written" : "computed"];
  }
  expect_met(tally, {"computed"}, kRuns / 2);
  expect_met(tally, {"as written", "fault"}, kRuns / 200);
}

}  // namespace
