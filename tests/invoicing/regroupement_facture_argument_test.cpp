// Generation.RegroupementFacture: the forms in which a grid arrives, and the calls that fail.
#include "invoicing/grid.h"
#include "support/arguments.h"

namespace {

using host::Grid;
using host::Item;
using host::Variant;
using Names = std::vector<std::wstring>;

class RegroupementFactureArgument : public ::testing::Test {
 protected:
  /// Three rows that come back in another order.
  static std::vector<Item> items() { return {Item{L"A1", L"C1"}, Item{L"B", L"C2"}, Item{L"A2", L"C1"}}; }

  ::testing::AssertionResult fails(VARIANT* argument, int fault) {
    return host::is_fault(generation_->RegroupementFacture(argument), fault, L"Generation");
  }

  const Names grouped_{L"A1", L"A2", L"B"};
  host::ComPtr<_Generation> generation_ = host::create<_Generation>(L"Generation");
};

TEST_F(RegroupementFactureArgument, TakesAnArrayInsideTheVariant) {
  Grid grid(items());
  ASSERT_EQ(S_OK, generation_->RegroupementFacture(grid));
  EXPECT_EQ(grouped_, grid.names());
}

TEST_F(RegroupementFactureArgument, TakesAReferenceToAnArray) {
  Grid grid(items());
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  argument.pparray = &grid.array();
  ASSERT_EQ(S_OK, generation_->RegroupementFacture(&argument));
  EXPECT_EQ(VT_BYREF | VT_ARRAY | VT_VARIANT, argument.vt);
  EXPECT_EQ(&grid.array(), argument.pparray);
  EXPECT_EQ(grouped_, grid.names());
}

TEST_F(RegroupementFactureArgument, TakesAReferenceToAVariant) {
  Grid grid(items());
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_VARIANT;
  argument.pvarVal = grid;
  ASSERT_EQ(S_OK, generation_->RegroupementFacture(&argument));
  EXPECT_EQ(VT_BYREF | VT_VARIANT, argument.vt);
  EXPECT_EQ(grouped_, grid.names());
}

TEST_F(RegroupementFactureArgument, TakesAReferenceToAVariantThatRefersToAnArray) {
  Grid grid(items());
  VARIANT inner{};
  inner.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  inner.pparray = &grid.array();
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_VARIANT;
  argument.pvarVal = &inner;
  ASSERT_EQ(S_OK, generation_->RegroupementFacture(&argument));
  EXPECT_EQ(grouped_, grid.names());
}

TEST_F(RegroupementFactureArgument, AnswersALateBoundCallWithAReferenceToAVariant) {
  Grid grid(items());
  ASSERT_EQ(S_OK, host::call(generation_.get(), L"RegroupementFacture",
                             host::arguments(host::by_reference(*grid.argument())), nullptr));
  EXPECT_EQ(grouped_, grid.names());
}

TEST_F(RegroupementFactureArgument, AnswersALateBoundCallWithAReferenceToAnArray) {
  Grid grid(items());
  Variant argument;
  argument.get().vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  argument.get().pparray = &grid.array();
  ASSERT_EQ(S_OK, host::call(generation_.get(), L"RegroupementFacture", host::arguments(std::move(argument)),
                             nullptr));
  EXPECT_EQ(grouped_, grid.names());
}

TEST_F(RegroupementFactureArgument, RaisesSubscriptAndKeepsTheGridWhenNoRowQualifies) {
  Grid grid({Item{L"A", L"C1", L"T", L"V", L"X", false}, Item{L"B", L"C1", L"T", L"V", L"X", true, L"F"}});
  const auto before = grid.content();
  EXPECT_TRUE(fails(grid, 9));
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFactureArgument, RaisesSubscriptForAGridOfNoRow) {
  Grid grid(0);
  EXPECT_TRUE(fails(grid, 9));
}

TEST_F(RegroupementFactureArgument, RaisesSubscriptForAOneDimensionalArray) {
  Variant argument;
  argument.get().vt = VT_ARRAY | VT_VARIANT;
  argument.get().parray = SafeArrayCreateVector(VT_VARIANT, 0, Grid::kColumns);
  EXPECT_TRUE(fails(&argument.get(), 9));
}

TEST_F(RegroupementFactureArgument, RaisesSubscriptForAThreeDimensionalArray) {
  // Every cell would be a tick, were the array read as if it had two dimensions.
  SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}, {Grid::kColumns, 0}};
  Variant argument;
  argument.get().vt = VT_ARRAY | VT_VARIANT;
  argument.get().parray = SafeArrayCreate(VT_VARIANT, 3, bounds);
  auto* cells = static_cast<VARIANT*>(argument.get().parray->pvData);
  for (unsigned long i = 0; i < Grid::kColumns; ++i) cells[i] = host::bool_value(true).detach();
  EXPECT_TRUE(fails(&argument.get(), 9));
  VARIANT_BOOL same = VARIANT_FALSE;
  EXPECT_TRUE(host::is_fault(generation_->IsRuptRgrpCadFact(&argument.get(), 0, 0, &same), 9, L"Generation"));
}

TEST_F(RegroupementFactureArgument, RaisesSubscriptForAnArrayThatWasNeverDimensioned) {
  Variant argument;
  argument.get().vt = VT_ARRAY | VT_VARIANT;
  argument.get().parray = nullptr;
  EXPECT_TRUE(fails(&argument.get(), 9));
}

TEST_F(RegroupementFactureArgument, RaisesSubscriptForRowsCountedFromOne) {
  Grid grid(2, Grid::kColumns, 1);
  grid.set(1, IndTabGener_ColSelect, host::bool_value(true));
  const auto before = grid.content();
  EXPECT_TRUE(fails(grid, 9));
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFactureArgument, RaisesTypeMismatchForAnArgumentThatIsNoArray) {
  Variant empty;
  EXPECT_TRUE(fails(&empty.get(), 13));
  Variant text = host::text_value(L"grille");
  EXPECT_TRUE(fails(&text.get(), 13));
}

TEST_F(RegroupementFactureArgument, RaisesTypeMismatchForATickThatIsNoTruthValue) {
  Grid grid({Item{L"A"}});
  grid.set(0, IndTabGener_ColSelect, host::text_value(L"peut-être"));
  const auto before = grid.content();
  EXPECT_TRUE(fails(grid, 13));
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFactureArgument, RaisesLockedAndLosesNothingWhenTheGridIsLocked) {
  Grid grid(items());
  const auto before = grid.content();
  ASSERT_EQ(S_OK, SafeArrayLock(grid.array()));
  EXPECT_TRUE(fails(grid, 10));
  ASSERT_EQ(S_OK, SafeArrayUnlock(grid.array()));
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFactureArgument, RaisesLockedAndLosesNothingWhenKeysAreComparedPairByPair) {
  Grid grid(items());
  grid.set(0, IndTabGener_ColCodeVend, Variant());  // Empty equals both "" and 0
  const auto before = grid.content();
  ASSERT_EQ(S_OK, SafeArrayLock(grid.array()));
  EXPECT_TRUE(fails(grid, 10));
  ASSERT_EQ(S_OK, SafeArrayUnlock(grid.array()));
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFactureArgument, LeavesTheLocksOfTheHostAlone) {
  Grid grid(items());
  ASSERT_EQ(S_OK, SafeArrayLock(grid.array()));
  EXPECT_TRUE(fails(grid, 10));
  EXPECT_EQ(1u, grid.array()->cLocks);
  SafeArrayUnlock(grid.array());
}

TEST_F(RegroupementFactureArgument, RaisesInvalidUseOfNullAndKeepsTheMarksSetBefore) {
  Grid grid(
      {Item{L"A1", L"C1"}, Item{L"B", L"C2"}, Item{L"A2", L"C1"}, Item{L"N", L"C1"}, Item{L"A3", L"C1"}});
  grid.set(3, IndTabGener_ColFormatTVA, host::null_value());
  Grid expected(grid);
  expected.set(0, IndTabGener_ColTypeDoc, host::text_value(L"F"));
  expected.set(2, IndTabGener_ColTypeDoc, host::text_value(L"F"));
  EXPECT_TRUE(fails(grid, 94));
  EXPECT_EQ(expected.content(), grid.content());
}

TEST_F(RegroupementFactureArgument, RaisesInvalidUseOfNullForASingleRowWithANullKey) {
  Grid grid({Item{L"A"}});
  grid.set(0, IndTabGener_ColCodeCli, host::null_value());
  const auto before = grid.content();
  EXPECT_TRUE(fails(grid, 94));
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFactureArgument, RefusesANullPointer) {
  EXPECT_EQ(E_POINTER, generation_->RegroupementFacture(nullptr));
}

TEST_F(RegroupementFactureArgument, ReportsAFaultToALateBoundCaller) {
  Grid grid({Item{L"A", L"C1", L"T", L"V", L"X", false}});
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION,
            host::call(generation_.get(), L"RegroupementFacture",
                       host::arguments(host::by_reference(*grid.argument())), nullptr, &exception));
  EXPECT_EQ(static_cast<HRESULT>(0x800A0009UL), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.Generation", host::get(exception.bstrSource));
  EXPECT_EQ(L"Indice hors limites", host::get(exception.bstrDescription));
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

}  // namespace
