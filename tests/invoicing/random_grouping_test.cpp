// Random grids, grouped by the library and by the literal rule: the outcomes must agree cell by cell.
// The seed is printed; VELMOSAV_TEST_SEED repeats a run.
#include <random>

#include "invoicing/grid.h"
#include "invoicing/literal_grouping.h"
#include "support/chance.h"

namespace {

using host::Grid;
using host::Variant;

constexpr long kKeys[] = {IndTabGener_ColCodeCli, IndTabGener_ColTypeTarif, IndTabGener_ColCodeVend,
                          IndTabGener_ColFormatTVA};

class RandomGrids {
 public:
  explicit RandomGrids(unsigned seed) : engine_(seed) {}

  Grid next() {
    // Few rows with many kinds of key, or many rows with few: both make large and small groups.
    const bool plain = chance(3);
    nulls_ = !plain && chance(4);
    Grid grid(static_cast<unsigned long>(below(plain ? 60 : 14) + (chance(50) ? 0 : 1)));
    for (long row = 0; row < grid.rows(); ++row) {
      grid.set(row, IndTabGener_ColNom, Variant(row));
      grid.set(row, IndTabGener_ColLib, key(false));
      grid.set(row, IndTabGener_ColSelect, tick());
      grid.set(row, IndTabGener_ColTypeDoc, type());
      for (const long column : kKeys) grid.set(row, column, key(plain));
    }
    return grid;
  }

 private:
  int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(engine_); }
  bool chance(int of) { return below(of) == 0; }

  Variant tick() {
    switch (below(12)) {
      case 0:
        return host::bool_value(false);
      case 1:
        return host::null_value();
      case 2:
        return Variant();
      case 3:
        return Variant(static_cast<long>(below(3)));
      case 4:
        return Variant(below(2) * 0.25);
      default:
        return host::bool_value(true);
    }
  }

  Variant type() {
    switch (below(12)) {
      case 0:
      case 1:
        return host::text_value(L"F");
      case 2:
        return host::text_value(L"f");
      case 3:
        return Variant();
      case 4:
        return chance(3) ? host::null_value() : Variant(7L);
      default:
        return host::text_value(chance(2) ? L"G" : L"P");
    }
  }

  Variant key(bool plain) {
    static constexpr const wchar_t* kTexts[] = {L"A", L"a", L"5", L"", L"AB", L"Ab", L"0", L"É"};
    if (plain) return host::text_value(kTexts[below(2)]);
    if (nulls_ && chance(12)) return host::null_value();
    switch (below(10)) {
      case 0:
        return Variant();
      case 1:
        return Variant(static_cast<short>(below(2) * 5));
      case 2:
        return Variant(static_cast<long>(below(2) * 5));
      case 3:
        return Variant(below(3) * 2.5);
      case 4:
        return currency();
      case 5:
        return other_number();
      case 6:
        return host::bool_value(chance(2));
      default:
        return host::text_value(kTexts[below(static_cast<int>(std::size(kTexts)))]);
    }
  }

  Variant currency() {
    Variant value;
    value.get().vt = VT_CY;
    value.get().cyVal.int64 = below(3) * 25000;
    return value;
  }

  Variant other_number() {
    Variant value;
    VARIANT& number = value.get();
    const int amount = below(3);
    switch (below(4)) {
      case 0:
        number.vt = VT_UI1;
        number.bVal = static_cast<BYTE>(amount * 5);
        break;
      case 1:
        number.vt = VT_R4;
        number.fltVal = static_cast<float>(amount) * 2.5F;
        break;
      case 2:
        number.vt = VT_DATE;
        number.dblVal = amount * 2.5;
        break;
      default:
        number.decVal.Lo64 = static_cast<ULONGLONG>(amount) * 25;
        number.decVal.Hi32 = 0;
        number.decVal.sign = 0;
        number.decVal.scale = 1;
        number.vt = VT_DECIMAL;
        break;
    }
    return value;
  }

  std::mt19937 engine_;
  bool nulls_ = false;
};

/// The outcome of a call as the literal rule names it.
int outcome_of(HRESULT code) {
  if (code == S_OK) return 0;
  constexpr unsigned long kFaults = 0x800A0000UL;
  return static_cast<int>(static_cast<unsigned long>(code) - kFaults);
}

TEST(RegroupementFactureRandom, AgreesWithTheLiteralRuleCellByCell) {
  constexpr int kGrids = 4000;
  const auto generation = host::create<_Generation>(L"Generation");
  const unsigned seed = host::chosen_seed();
  RandomGrids grids(seed);
  int grouped = 0;
  int null_keys = 0;
  int without_row = 0;
  for (int i = 0; i < kGrids; ++i) {
    Grid grid = grids.next();
    Grid expected(grid);
    const auto entry = grid.content();
    const int outcome = literal::group(expected.array());
    (outcome == 0 ? grouped : outcome == 94 ? null_keys : without_row) += 1;
    const int answered = outcome_of(generation->RegroupementFacture(grid));
    if (outcome == answered && expected.content() == grid.content()) continue;
    std::string text;
    for (const std::string& line : entry) text += line + "\n";
    ASSERT_EQ(outcome, answered) << "seed " << seed << ", grid " << i << "\n" << text;
    ASSERT_EQ(expected.content(), grid.content()) << "seed " << seed << ", grid " << i << "\n" << text;
  }
  // Every kind of outcome was met, or the comparison said nothing about it.
  EXPECT_GT(grouped, kGrids / 4);
  EXPECT_GT(null_keys, kGrids / 50);
  EXPECT_GT(without_row, 0);
}

TEST(IsRuptRgrpCadFactRandom, AgreesWithTheLiteralRuleForEveryPairOfRows) {
  constexpr int kGrids = 500;
  const auto generation = host::create<_Generation>(L"Generation");
  const unsigned seed = host::chosen_seed();
  RandomGrids grids(seed);
  for (int i = 0; i < kGrids; ++i) {
    Grid grid = grids.next();
    for (long row = 0; row < grid.rows(); ++row) {
      for (long other = 0; other < grid.rows(); ++other) {
        bool expected = false;
        VARIANT_BOOL same = VARIANT_FALSE;
        const int outcome = literal::same_invoice(grid.array(), row, other, expected);
        const HRESULT code =
            generation->IsRuptRgrpCadFact(grid, static_cast<short>(row), static_cast<short>(other), &same);
        ASSERT_EQ(outcome, outcome_of(code))
            << "seed " << seed << ", grid " << i << ": " << row << ", " << other;
        ASSERT_EQ(outcome == 0 && expected, same == VARIANT_TRUE)
            << "seed " << seed << ", grid " << i << "\n"
            << grid.content()[1 + static_cast<std::size_t>(row)] << "\n"
            << grid.content()[1 + static_cast<std::size_t>(other)];
      }
    }
  }
}

}  // namespace
