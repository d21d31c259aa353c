// Reconduction.bDiffLigneTab: whether a row of the renewal grid changes an amount.
#include "services/renewal_grid.h"

namespace host {
namespace {

/// A pair of columns: former and new.
struct Columns {
  const char* name;
  long former;
  long current;
};
constexpr Columns kPairs[] = {{"AmountBeforeTax", 6, 7}, {"Vat", 8, 9}, {"AmountAfterTax", 20, 21}};

class Reconduction : public ::testing::Test {
 protected:
  HRESULT compare(const VARIANT& argument, short row, bool* differs) {
    VARIANT_BOOL result = 7;
    const HRESULT code = renewal_->bDiffLigneTab(argument, row, &result);
    if (code == S_OK) {
      EXPECT_TRUE(result == VARIANT_TRUE || result == VARIANT_FALSE) << result;
    }
    *differs = result == VARIANT_TRUE;
    return code;
  }
  /// The answer for a row; the grid stays as it was.
  bool differs(const RenewalGrid& grid, short row) {
    const auto before = grid.content();
    bool result = false;
    EXPECT_EQ(S_OK, compare(grid.argument(), row, &result));
    EXPECT_EQ(before, grid.content());
    return result;
  }
  ::testing::AssertionResult faults(const RenewalGrid& grid, short row, int number) {
    const auto before = grid.content();
    bool result = false;
    const HRESULT code = compare(grid.argument(), row, &result);
    EXPECT_EQ(before, grid.content());
    return is_fault(code, number, L"Reconduction");
  }
  /// Compares two cells of a pair, all other pairs being equal.
  bool cells_differ(Variant former, Variant current) {
    RenewalGrid grid(1);
    grid.set_equal(0, 100);
    grid.set(0, 8, std::move(former));
    grid.set(0, 9, std::move(current));
    return differs(grid, 0);
  }

  ComPtr<_Reconduction> renewal_ = create<_Reconduction>(L"Reconduction");
};

TEST_F(Reconduction, AtCreation_HoldsTheLastColumnAndTheOperationCodes) {
  BYTE last_column = 0;
  Text increase, renewal;
  EXPECT_EQ(S_OK, renewal_->get_PC_IndMaxTMajRec(&last_column));
  EXPECT_EQ(S_OK, renewal_->get_PC_MajorationCtt(&increase));
  EXPECT_EQ(S_OK, renewal_->get_PC_ReconductionCtt(&renewal));
  EXPECT_EQ(26, last_column);
  EXPECT_EQ(L"MC", increase.str());
  EXPECT_EQ(L"RC", renewal.str());
}

TEST_F(Reconduction, BDiffLigneTab_EqualAmountsInAllThreePairs_AreFalse) {
  RenewalGrid grid(1);
  grid.set_equal(0, 120.5);
  EXPECT_FALSE(differs(grid, 0));
}

TEST_F(Reconduction, BDiffLigneTab_PairsAreNotComparedWithEachOther) {
  RenewalGrid grid(1);
  for (const Columns& pair : kPairs) {
    grid.set(0, pair.former, Variant(static_cast<double>(pair.former)));
    grid.set(0, pair.current, Variant(static_cast<double>(pair.former)));
  }
  EXPECT_FALSE(differs(grid, 0));
}

class ReconductionPair : public Reconduction, public ::testing::WithParamInterface<Columns> {
 protected:
  ReconductionPair() { grid_.set_equal(0, 100); }
  RenewalGrid grid_{1};
};

TEST_P(ReconductionPair, BDiffLigneTab_OnlyThisPairDiffers_IsTrue) {
  grid_.set(0, GetParam().current, Variant(100.01));
  EXPECT_TRUE(differs(grid_, 0));
  grid_.set(0, GetParam().current, Variant(99.99));
  EXPECT_TRUE(differs(grid_, 0));
}

TEST_P(ReconductionPair, BDiffLigneTab_NullInTheFormerCell_IsFault94) {
  grid_.set(0, GetParam().former, null_value());
  EXPECT_TRUE(faults(grid_, 0, 94));
}

TEST_P(ReconductionPair, BDiffLigneTab_NullInTheNewCell_IsFault94) {
  grid_.set(0, GetParam().current, null_value());
  EXPECT_TRUE(faults(grid_, 0, 94));
}

TEST_P(ReconductionPair, BDiffLigneTab_NullInBothCells_IsFault94) {
  grid_.set(0, GetParam().former, null_value());
  grid_.set(0, GetParam().current, null_value());
  EXPECT_TRUE(faults(grid_, 0, 94));
}

TEST_P(ReconductionPair, BDiffLigneTab_NullBesideOtherPairsThatDiffer_IsFault94) {
  for (const Columns& pair : kPairs) grid_.set(0, pair.current, Variant(7.0));
  grid_.set(0, GetParam().former, null_value());
  EXPECT_TRUE(faults(grid_, 0, 94));
}

TEST_F(Reconduction, BDiffLigneTab_AllPairsAreReadBeforeANullFaults) {
  RenewalGrid narrow(1, 21);
  for (long column = 0; column < 21; ++column) narrow.set(0, column, Variant(1.0));
  narrow.set(0, 6, null_value());
  EXPECT_TRUE(faults(narrow, 0, 9));

  RenewalGrid grid(1);
  grid.set_equal(0, 1);
  grid.set(0, 6, null_value());
  Variant error;
  error.get().vt = VT_ERROR;
  error.get().scode = E_FAIL;
  grid.set(0, 20, std::move(error));
  EXPECT_TRUE(faults(grid, 0, 13));
}

INSTANTIATE_TEST_SUITE_P(Pairs, ReconductionPair, ::testing::ValuesIn(kPairs),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Reconduction, BDiffLigneTab_OtherColumns_AreNotRead) {
  RenewalGrid grid(1);
  grid.set_equal(0, 100);
  for (long column = 0; column < 27; ++column) {
    if ((column >= 6 && column <= 9) || column == 20 || column == 21) continue;
    grid.set(0, column, null_value());
  }
  EXPECT_FALSE(differs(grid, 0));
}

TEST_F(Reconduction, BDiffLigneTab_ReadsTheRowThatIsAskedFor) {
  RenewalGrid grid(3);
  for (long row = 0; row < 3; ++row) grid.set_equal(row, 100.0 + row);
  grid.set(1, 9, Variant(7.0));
  EXPECT_FALSE(differs(grid, 0));
  EXPECT_TRUE(differs(grid, 1));
  EXPECT_FALSE(differs(grid, 2));
}

TEST_F(Reconduction, BDiffLigneTab_Numbers100And100Point0_AreEqual) {
  EXPECT_FALSE(cells_differ(Variant(100L), Variant(100.0)));
}

TEST_F(Reconduction, BDiffLigneTab_Texts100And100WithDecimals_Differ) {
  EXPECT_TRUE(cells_differ(text_value(L"100"), text_value(L"100,00")));
  EXPECT_TRUE(cells_differ(text_value(L"100"), text_value(L"100.0")));
}

TEST_F(Reconduction, BDiffLigneTab_EqualTexts_AreEqual) {
  EXPECT_FALSE(cells_differ(text_value(L"100,00"), text_value(L"100,00")));
}

TEST_F(Reconduction, BDiffLigneTab_TextsAreComparedExactly) {
  EXPECT_TRUE(cells_differ(text_value(L"a"), text_value(L"A")));
  EXPECT_TRUE(cells_differ(text_value(L"é"), text_value(L"e")));
  EXPECT_TRUE(cells_differ(text_value(L"100"), text_value(L"100 ")));
  EXPECT_TRUE(cells_differ(text_value(L"100"), text_value(L"")));
}

TEST_F(Reconduction, BDiffLigneTab_NumberAndText_DifferEvenWhenTheyReadTheSame) {
  EXPECT_TRUE(cells_differ(Variant(100L), text_value(L"100")));
  EXPECT_TRUE(cells_differ(text_value(L"100"), Variant(100.0)));
}

/// The types of a script's numbers, and the others that a grid may hold.
constexpr VARTYPE kCommonNumbers[] = {VT_UI1, VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DATE, VT_DECIMAL};
constexpr VARTYPE kOtherNumbers[] = {VT_I1, VT_UI2, VT_UI4, VT_I8, VT_UI8};

class ReconductionTypes : public Reconduction {
 protected:
  void expect_comparison_by_value(VARTYPE left, VARTYPE right) {
    EXPECT_FALSE(cells_differ(number_of_type(left, 100), number_of_type(right, 100)))
        << left << " and " << right;
    EXPECT_TRUE(cells_differ(number_of_type(left, 100), number_of_type(right, 101)))
        << left << " and " << right;
  }
};

TEST_F(ReconductionTypes, BDiffLigneTab_NumbersOfTwoCommonTypes_CompareByValue) {
  for (const VARTYPE left : kCommonNumbers) {
    for (const VARTYPE right : kCommonNumbers) expect_comparison_by_value(left, right);
  }
}

TEST_F(ReconductionTypes, BDiffLigneTab_NumbersOfOtherTypesAndCommonOnes_CompareByValue) {
  for (const VARTYPE other : kOtherNumbers) {
    for (const VARTYPE common : kCommonNumbers) {
      expect_comparison_by_value(other, common);
      expect_comparison_by_value(common, other);
    }
  }
}

TEST_F(ReconductionTypes, BDiffLigneTab_NumbersOfTwoOtherTypes_CompareByValue) {
  for (const VARTYPE left : kOtherNumbers) {
    for (const VARTYPE right : kOtherNumbers) expect_comparison_by_value(left, right);
  }
}

TEST_F(Reconduction, BDiffLigneTab_Fractions_CompareByValue) {
  EXPECT_FALSE(cells_differ(number_of_type(VT_CY, 12.5), Variant(12.5)));
  EXPECT_FALSE(cells_differ(number_of_type(VT_R4, 12.5), number_of_type(VT_DECIMAL, 12.5)));
  EXPECT_TRUE(cells_differ(number_of_type(VT_CY, 12.5), Variant(12.5001)));
  EXPECT_TRUE(cells_differ(number_of_type(VT_CY, 12.5), number_of_type(VT_I2, 12)));
}

TEST_F(Reconduction, BDiffLigneTab_TrueIsMinusOne) {
  EXPECT_FALSE(cells_differ(bool_value(true), Variant(short{-1})));
  EXPECT_TRUE(cells_differ(bool_value(true), Variant(short{1})));
  EXPECT_FALSE(cells_differ(bool_value(false), Variant(0.0)));
}

TEST_F(Reconduction, BDiffLigneTab_EmptyCellsEqualZeroAndTheEmptyText) {
  EXPECT_FALSE(cells_differ(Variant(), Variant()));
  EXPECT_FALSE(cells_differ(Variant(), Variant(0.0)));
  EXPECT_FALSE(cells_differ(text_value(L""), Variant()));
  EXPECT_TRUE(cells_differ(Variant(), Variant(0.01)));
  EXPECT_TRUE(cells_differ(Variant(), text_value(L"0")));
}

TEST_F(Reconduction, BDiffLigneTab_RowOutside_IsFault9) {
  RenewalGrid grid(2);
  grid.set_equal(0, 1);
  grid.set_equal(1, 1);
  for (const int row : {-32768, -1, 2, 32767}) {
    EXPECT_TRUE(faults(grid, static_cast<short>(row), 9)) << row;
  }
}

TEST_F(Reconduction, BDiffLigneTab_GridWithoutColumn21_IsFault9EvenWhenAnEarlierPairDiffers) {
  RenewalGrid grid(1, 21);
  for (const long column : {6, 7, 8, 9, 20}) grid.set(0, column, Variant(1.0));
  EXPECT_TRUE(faults(grid, 0, 9));
  grid.set(0, 7, Variant(2.0));
  EXPECT_TRUE(faults(grid, 0, 9));
}

TEST_F(Reconduction, BDiffLigneTab_GridThatEndsWithColumn21_IsEnough) {
  RenewalGrid grid(1, 22);
  grid.set_equal(0, 1);
  EXPECT_FALSE(differs(grid, 0));
}

TEST_F(Reconduction, BDiffLigneTab_GridFromOtherLowerBounds_IsReadByItsOwnIndices) {
  RenewalGrid grid(2, 20, 1, 6);
  grid.set_equal(1, 1);
  grid.set_equal(2, 1);
  grid.set(2, 21, Variant(2.0));
  EXPECT_TRUE(faults(grid, 0, 9));
  EXPECT_FALSE(differs(grid, 1));
  EXPECT_TRUE(differs(grid, 2));
  const RenewalGrid late(1, 20, 0, 7);
  EXPECT_TRUE(faults(late, 0, 9));
}

TEST_F(Reconduction, BDiffLigneTab_NegativeLowerBound_MakesNegativeRowsValid) {
  RenewalGrid grid(2, 27, -1);
  grid.set_equal(-1, 1);
  grid.set_equal(0, 1);
  grid.set(-1, 6, Variant(2.0));
  EXPECT_TRUE(differs(grid, -1));
  EXPECT_FALSE(differs(grid, 0));
}

TEST_F(Reconduction, BDiffLigneTab_GridByReference_IsRead) {
  RenewalGrid grid(1);
  grid.set_equal(0, 1);
  VARIANT variable = grid.argument();
  Variant by_array = by_reference(VT_ARRAY | VT_VARIANT, &grid.array()), by_variable = by_reference(variable);
  for (const bool expected : {false, true}) {
    if (expected) grid.set(0, 9, Variant(2.0));
    bool result = !expected;
    EXPECT_EQ(S_OK, compare(by_array.get(), 0, &result));
    EXPECT_EQ(expected, result);
    result = !expected;
    EXPECT_EQ(S_OK, compare(by_variable.get(), 0, &result));
    EXPECT_EQ(expected, result);
  }
}

TEST_F(Reconduction, BDiffLigneTab_ArgumentThatIsNoGrid_IsFault13) {
  bool result = false;
  const Variant text = text_value(L"100");
  const Variant nothing;
  EXPECT_TRUE(is_fault(compare(text.get(), 0, &result), 13, L"Reconduction"));
  EXPECT_TRUE(is_fault(compare(nothing.get(), 0, &result), 13, L"Reconduction"));
}

TEST_F(Reconduction, BDiffLigneTab_GridNeverDimensioned_IsFault9) {
  bool result = false;
  VARIANT argument;
  argument.vt = VT_ARRAY | VT_VARIANT;
  argument.parray = nullptr;
  EXPECT_TRUE(is_fault(compare(argument, 0, &result), 9, L"Reconduction"));
}

TEST_F(Reconduction, BDiffLigneTab_GridOfOneDimension_IsFault9) {
  Variant argument;
  argument.get().vt = VT_ARRAY | VT_VARIANT;
  argument.get().parray = SafeArrayCreateVector(VT_VARIANT, 0, 27);
  bool result = false;
  EXPECT_TRUE(is_fault(compare(argument.get(), 0, &result), 9, L"Reconduction"));
}

TEST_F(Reconduction, BDiffLigneTab_NullAddressOfTheResult_IsRefused) {
  RenewalGrid grid(1);
  grid.set_equal(0, 1);
  EXPECT_EQ(E_POINTER, renewal_->bDiffLigneTab(grid.argument(), 0, nullptr));
  EXPECT_EQ(L"VelmoSAV_DLL14.Reconduction", take_error().source);
}

TEST_F(Reconduction, BDiffLigneTab_LateBound_TakesTheGridOfAScriptVariable) {
  RenewalGrid grid(2);
  grid.set_equal(0, 1);
  grid.set_equal(1, 1);
  grid.set(1, 21, Variant(2.0));
  VARIANT variable = grid.argument();
  for (const long row : {0L, 1L}) {
    Variant result;
    ASSERT_EQ(S_OK, call(renewal_.get(), L"bDiffLigneTab", arguments(by_reference(variable), Variant(row)),
                         result.receive()));
    EXPECT_EQ(VT_BOOL, result.get().vt);
    EXPECT_EQ(row == 1 ? VARIANT_TRUE : VARIANT_FALSE, result.get().boolVal);
  }
}

TEST_F(Reconduction, BDiffLigneTab_LateBound_TakesAnArrayByReference) {
  RenewalGrid grid(1);
  grid.set_equal(0, 1);
  grid.set(0, 6, Variant(2.0));
  Variant result;
  ASSERT_EQ(S_OK, call(renewal_.get(), L"bDiffLigneTab",
                       arguments(by_reference(VT_ARRAY | VT_VARIANT, &grid.array()), Variant(0L)),
                       result.receive()));
  EXPECT_EQ(VARIANT_TRUE, result.get().boolVal);
}

}  // namespace
}  // namespace host
