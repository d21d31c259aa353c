// Generation.IsRuptRgrpCadFact: whether two rows of the grid go onto the same invoice.
#include "invoicing/grid.h"
#include "support/arguments.h"

namespace {

using host::Grid;
using host::Item;
using host::Variant;

class IsRuptRgrpCadFact : public ::testing::Test {
 protected:
  /// The answer for rows 0 and 1; the test fails when the call does.
  bool same_invoice(Grid& grid, short row = 0, short other = 1) {
    VARIANT_BOOL same = 7;
    EXPECT_EQ(S_OK, generation_->IsRuptRgrpCadFact(grid, row, other, &same));
    EXPECT_TRUE(same == VARIANT_TRUE || same == VARIANT_FALSE) << same;
    return same != VARIANT_FALSE;
  }

  HRESULT compare(VARIANT* grid, short row, short other) {
    VARIANT_BOOL same = VARIANT_FALSE;
    return generation_->IsRuptRgrpCadFact(grid, row, other, &same);
  }

  /// The answer for two rows whose customers are these and whose other keys are equal.
  bool same_customer(Variant left, Variant right) {
    Grid grid({Item{L"A"}, Item{L"B"}});
    grid.set(0, IndTabGener_ColCodeCli, std::move(left));
    grid.set(1, IndTabGener_ColCodeCli, std::move(right));
    return same_invoice(grid);
  }

  host::ComPtr<_Generation> generation_ = host::create<_Generation>(L"Generation");
};

Variant currency(long long units) {
  Variant value;
  value.get().vt = VT_CY;
  value.get().cyVal.int64 = units * 10000;
  return value;
}

Variant byte(unsigned char number) {
  Variant value;
  value.get().vt = VT_UI1;
  value.get().bVal = number;
  return value;
}

TEST_F(IsRuptRgrpCadFact, IsTrueForRowsEqualInAllFourKeys) {
  Grid grid({Item{L"A"}, Item{L"B"}});
  EXPECT_TRUE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, IsFalseForAnotherCustomer) {
  Grid grid({Item{L"A", L"C1"}, Item{L"B", L"C2"}});
  EXPECT_FALSE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, IsFalseForAnotherPriceList) {
  Grid grid({Item{L"A", L"C1", L"T"}, Item{L"B", L"C1", L"H"}});
  EXPECT_FALSE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, IsFalseForAnotherRepresentative) {
  Grid grid({Item{L"A", L"C1", L"T", L"V"}, Item{L"B", L"C1", L"T", L"W"}});
  EXPECT_FALSE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, IsFalseForAnotherVatFormat) {
  Grid grid({Item{L"A", L"C1", L"T", L"V", L"X"}, Item{L"B", L"C1", L"T", L"V", L"Y"}});
  EXPECT_FALSE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, IgnoresTheTickAndTheDocumentType) {
  Grid grid({Item{L"A"}, Item{L"B", L"C1", L"T", L"V", L"X", false, L"F"}});
  EXPECT_TRUE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, IsTrueForARowWithItself) {
  Grid grid({Item{L"A"}, Item{L"B", L"C2"}, Item{L"C", L"", L"", L"", L""}});
  for (short row = 0; row < 3; ++row) EXPECT_TRUE(same_invoice(grid, row, row)) << "row " << row;
}

TEST_F(IsRuptRgrpCadFact, ComparesTheRowsThatAreNamed) {
  Grid grid({Item{L"A", L"C1"}, Item{L"B", L"C2"}, Item{L"C", L"C3"}, Item{L"D", L"C2"}});
  EXPECT_TRUE(same_invoice(grid, 1, 3));
  EXPECT_TRUE(same_invoice(grid, 3, 1));
  EXPECT_FALSE(same_invoice(grid, 1, 2));
}

TEST_F(IsRuptRgrpCadFact, DistinguishesLetterCase) {
  EXPECT_FALSE(same_customer(host::text_value(L"Dupont"), host::text_value(L"DUPONT")));
}

TEST_F(IsRuptRgrpCadFact, DistinguishesTextsThatDifferByABlank) {
  EXPECT_FALSE(same_customer(host::text_value(L"C1"), host::text_value(L"C1 ")));
}

TEST_F(IsRuptRgrpCadFact, DistinguishesAccents) {
  EXPECT_FALSE(same_customer(host::text_value(L"René"), host::text_value(L"Rene")));
}

TEST_F(IsRuptRgrpCadFact, ComparesBeyondANulCharacterInAText) {
  EXPECT_FALSE(same_customer(host::text_value({L"C\0A", 3}), host::text_value({L"C\0B", 3})));
}

TEST_F(IsRuptRgrpCadFact, TakesANullTextForAnEmptyOne) {
  Variant null_text;
  null_text.get().vt = VT_BSTR;
  null_text.get().bstrVal = nullptr;
  EXPECT_TRUE(same_customer(std::move(null_text), host::text_value(L"")));
}

TEST_F(IsRuptRgrpCadFact, ComparesNumbersByValueWhateverTheirTypes) {
  EXPECT_TRUE(same_customer(Variant(short{5}), Variant(5.0)));
  EXPECT_TRUE(same_customer(Variant(short{5}), currency(5)));
  EXPECT_TRUE(same_customer(currency(5), Variant(5.0)));
  EXPECT_TRUE(same_customer(Variant(5L), byte(5)));
  EXPECT_FALSE(same_customer(Variant(short{5}), Variant(5.5)));
  EXPECT_FALSE(same_customer(Variant(5L), currency(6)));
}

TEST_F(IsRuptRgrpCadFact, TellsANumberFromTheTextOfTheSameDigits) {
  EXPECT_FALSE(same_customer(Variant(short{5}), host::text_value(L"5")));
  EXPECT_FALSE(same_customer(host::text_value(L"5"), Variant(5.0)));
}

TEST_F(IsRuptRgrpCadFact, TakesEmptyForAnEmptyText) {
  EXPECT_TRUE(same_customer(Variant(), host::text_value(L"")));
  EXPECT_TRUE(same_customer(host::text_value(L""), Variant()));
  EXPECT_FALSE(same_customer(Variant(), host::text_value(L"0")));
}

TEST_F(IsRuptRgrpCadFact, TakesEmptyForZero) {
  EXPECT_TRUE(same_customer(Variant(), Variant(0L)));
  EXPECT_TRUE(same_customer(Variant(0.0), Variant()));
  EXPECT_FALSE(same_customer(Variant(), Variant(1L)));
}

TEST_F(IsRuptRgrpCadFact, TakesEmptyForEmpty) { EXPECT_TRUE(same_customer(Variant(), Variant())); }

TEST_F(IsRuptRgrpCadFact, TellsAnEmptyTextFromZero) {
  EXPECT_FALSE(same_customer(host::text_value(L""), Variant(0L)));
}

TEST_F(IsRuptRgrpCadFact, RaisesInvalidUseOfNullForANullInAnyKey) {
  for (const long column : {IndTabGener_ColCodeCli, IndTabGener_ColTypeTarif, IndTabGener_ColCodeVend,
                            IndTabGener_ColFormatTVA}) {
    for (const long row : {0L, 1L}) {
      Grid grid({Item{L"A"}, Item{L"B"}});
      grid.set(row, column, host::null_value());
      EXPECT_TRUE(host::is_fault(compare(grid, 0, 1), 94, L"Generation"))
          << "row " << row << ", column " << column;
    }
  }
}

TEST_F(IsRuptRgrpCadFact, RaisesInvalidUseOfNullForANullKeyComparedWithItself) {
  Grid grid({Item{L"A"}});
  grid.set(0, IndTabGener_ColCodeVend, host::null_value());
  EXPECT_TRUE(host::is_fault(compare(grid, 0, 0), 94, L"Generation"));
}

TEST_F(IsRuptRgrpCadFact, AcceptsANullOutsideTheKeys) {
  Grid grid({Item{L"A"}, Item{L"B"}});
  grid.set(0, IndTabGener_ColSelect, host::null_value());
  grid.set(1, IndTabGener_ColRappTrait, host::null_value());
  EXPECT_TRUE(same_invoice(grid));
}

TEST_F(IsRuptRgrpCadFact, RaisesSubscriptForARowOutsideTheGrid) {
  Grid grid({Item{L"A"}, Item{L"B"}});
  EXPECT_TRUE(host::is_fault(compare(grid, 0, 2), 9, L"Generation"));
  EXPECT_TRUE(host::is_fault(compare(grid, 2, 0), 9, L"Generation"));
  EXPECT_TRUE(host::is_fault(compare(grid, -1, 0), 9, L"Generation"));
  EXPECT_TRUE(host::is_fault(compare(grid, 0, -1), 9, L"Generation"));
}

TEST_F(IsRuptRgrpCadFact, RaisesSubscriptForAGridWithoutTheVatFormatColumn) {
  Grid grid(2, Grid::kColumns - 1);
  EXPECT_TRUE(host::is_fault(compare(grid, 0, 1), 9, L"Generation"));
}

TEST_F(IsRuptRgrpCadFact, CountsRowsFromTheLowerBoundOfTheGrid) {
  Grid grid(2, Grid::kColumns, 1);
  grid.set(1, IndTabGener_ColCodeCli, host::text_value(L"C1"));
  grid.set(2, IndTabGener_ColCodeCli, host::text_value(L"C2"));
  EXPECT_FALSE(same_invoice(grid, 1, 2));
  EXPECT_TRUE(host::is_fault(compare(grid, 0, 1), 9, L"Generation"));
}

TEST_F(IsRuptRgrpCadFact, LeavesTheGridAsItIs) {
  Grid grid({Item{L"A"}, Item{L"B", L"C2"}, Item{L"C"}});
  const auto before = grid.content();
  same_invoice(grid, 0, 2);
  same_invoice(grid, 0, 1);
  EXPECT_EQ(before, grid.content());
}

TEST_F(IsRuptRgrpCadFact, RefusesANullPointer) {
  Grid grid({Item{L"A"}});
  VARIANT_BOOL same = VARIANT_FALSE;
  EXPECT_EQ(E_POINTER, generation_->IsRuptRgrpCadFact(nullptr, 0, 0, &same));
  EXPECT_EQ(E_POINTER, generation_->IsRuptRgrpCadFact(grid, 0, 0, nullptr));
}

TEST_F(IsRuptRgrpCadFact, AnswersALateBoundCall) {
  Grid grid({Item{L"A"}, Item{L"B", L"C2"}, Item{L"C"}});
  for (const auto& [other, expected] : {std::pair{short{2}, true}, std::pair{short{1}, false}}) {
    Variant same;
    ASSERT_EQ(S_OK, host::call(generation_.get(), L"IsRuptRgrpCadFact",
                               host::arguments(host::by_reference(*grid.argument()), Variant(short{0}),
                                               Variant(other)),
                               same.receive()));
    ASSERT_EQ(VT_BOOL, same.get().vt);
    EXPECT_EQ(expected, same.get().boolVal == VARIANT_TRUE) << "row " << other;
  }
}

}  // namespace
