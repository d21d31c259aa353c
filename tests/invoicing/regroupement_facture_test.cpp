// Generation.RegroupementFacture: which rows stay, in which order, and what they hold.
#include "invoicing/grid.h"
#include "support/fake_object.h"

namespace {

using host::Grid;
using host::Item;
using host::Variant;
using Names = std::vector<std::wstring>;

class RegroupementFacture : public ::testing::Test {
 protected:
  void group(Grid& grid) { ASSERT_EQ(S_OK, generation_->RegroupementFacture(grid)); }

  /// Whether a row with this tick stays; a plain ticked row beside it always does.
  bool stays_with_tick(Variant tick) {
    Grid grid({Item{L"subject"}, Item{L"other", L"C2"}});
    grid.set(0, IndTabGener_ColSelect, std::move(tick));
    group(grid);
    return grid.names() == Names{L"subject", L"other"};
  }

  /// The same for a document type.
  bool stays_with_type(Variant type) {
    Grid grid({Item{L"subject"}, Item{L"other", L"C2"}});
    grid.set(0, IndTabGener_ColTypeDoc, std::move(type));
    group(grid);
    return grid.names() == Names{L"subject", L"other"};
  }

  host::ComPtr<_Generation> generation_ = host::create<_Generation>(L"Generation");
};

TEST_F(RegroupementFacture, BringsTickedRowsOfOneInvoiceTogetherAndDropsTheUntickedOne) {
  Grid grid({Item{L"A1", L"C1"}, Item{L"B", L"C2"}, Item{L"A2", L"C1"},
             Item{L"D", L"C1", L"T", L"V", L"X", false}});
  group(grid);
  EXPECT_EQ((Names{L"A1", L"A2", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, FormsTwoGroupsOfRowsThatDifferOnlyInTheRepresentative) {
  Grid grid({Item{L"A", L"C1", L"T", L"V"}, Item{L"B", L"C1", L"T", L"W"}, Item{L"C", L"C1", L"T", L"V"}});
  group(grid);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, FormsTwoGroupsOfRowsThatDifferOnlyInThePriceList) {
  Grid grid({Item{L"A", L"C1", L"T"}, Item{L"B", L"C1", L"H"}, Item{L"C", L"C1", L"T"}});
  group(grid);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, FormsTwoGroupsOfRowsThatDifferOnlyInTheVatFormat) {
  Grid grid({Item{L"A", L"C1", L"T", L"V", L"X"}, Item{L"B", L"C1", L"T", L"V", L"Y"},
             Item{L"C", L"C1", L"T", L"V", L"X"}});
  group(grid);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, KeepsApartKeysWhoseTextsJoinToTheSameText) {
  Grid grid({Item{L"A", L"C1", L"TV", L""}, Item{L"B", L"C1", L"T", L"V"}, Item{L"C", L"C1", L"TV", L""}});
  group(grid);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names());
}

/// A cell that refers to a variable of the host.
Variant reference_to(VARIANT& variable) {
  Variant cell;
  cell.get().vt = VT_BYREF | VT_VARIANT;
  cell.get().pvarVal = &variable;
  return cell;
}

TEST_F(RegroupementFacture, TakesAKeyBehindAReferenceForItsValue) {
  // Keys that are texts or numbers are hashed, one that is Empty makes them compared pair by pair.
  for (const bool with_empty : {false, true}) {
    Grid grid({Item{L"A", L"C1"}, Item{L"B", L"C2"}, Item{L"C", L"C1"}});
    Variant customer = host::text_value(L"C1");
    grid.set(2, IndTabGener_ColCodeCli, reference_to(customer.get()));
    if (with_empty) grid.set(1, IndTabGener_ColCodeVend, Variant());
    group(grid);
    EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names()) << with_empty;
  }
}

TEST_F(RegroupementFacture, TakesAKeyBehindTwoReferencesForItsValue) {
  for (const bool with_empty : {false, true}) {
    Grid grid({Item{L"A"}, Item{L"B"}, Item{L"C"}});
    long number = 7;
    Variant variable;
    variable.get().vt = VT_BYREF | VT_I4;
    variable.get().plVal = &number;
    grid.set(0, IndTabGener_ColCodeCli, Variant(7L));
    if (with_empty) grid.set(1, IndTabGener_ColCodeVend, Variant());
    grid.set(2, IndTabGener_ColCodeCli, reference_to(variable.get()));
    group(grid);
    EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names()) << with_empty;
  }
}

TEST_F(RegroupementFacture, DropsATickedRowThatIsAnInvoiceOnEntry) {
  Grid grid({Item{L"A"}, Item{L"B", L"C1", L"T", L"V", L"X", true, L"F"}, Item{L"C"}});
  group(grid);
  EXPECT_EQ((Names{L"A", L"C"}), grid.names());
}

TEST_F(RegroupementFacture, LeavesAsManyRowsAsTickedRowsOfOtherTypesAndFourteenColumns) {
  Grid grid({Item{L"A"}, Item{L"B", L"C2", L"T", L"V", L"X", false}, Item{L"C", L"C3"},
             Item{L"D", L"C1", L"T", L"V", L"X", true, L"F"}, Item{L"E"}});
  group(grid);
  EXPECT_EQ("0..2 x 0..13", grid.content()[0]);
}

TEST_F(RegroupementFacture, OrdersGroupsByTheirFirstRowAndRowsByEntryInsideAGroup) {
  Grid grid({Item{L"B1", L"C2"}, Item{L"A1", L"C1"}, Item{L"C1", L"C3"}, Item{L"A2", L"C1"},
             Item{L"B2", L"C2"}, Item{L"A3", L"C1"}, Item{L"B3", L"C2"}});
  group(grid);
  EXPECT_EQ((Names{L"B1", L"B2", L"B3", L"A1", L"A2", L"A3", L"C1"}), grid.names());
}

TEST_F(RegroupementFacture, PlacesAGroupByItsFirstTickedRow) {
  Grid grid({Item{L"A0", L"C1", L"T", L"V", L"X", false}, Item{L"B1", L"C2"}, Item{L"A1", L"C1"},
             Item{L"B2", L"C2"}});
  group(grid);
  EXPECT_EQ((Names{L"B1", L"B2", L"A1"}), grid.names());
}

TEST_F(RegroupementFacture, CopiesEveryCellOfARowAsItStands) {
  Grid grid({Item{L"A", L"C1"}, Item{L"B", L"C2"}, Item{L"C", L"C1"}});
  Variant date(45000.5);
  date.get().vt = VT_DATE;
  grid.set(2, IndTabGener_ColDate, std::move(date));
  grid.set(2, IndTabGener_ColLib, Variant());
  grid.set(2, IndTabGener_ColRappTrait, host::null_value());
  grid.set(2, IndTabGener_ColTraitOk, host::bool_value(false));
  const auto before = grid.content();
  group(grid);
  EXPECT_EQ((std::vector<std::string>{before[0], before[1], before[3], before[2]}), grid.content());
}

TEST_F(RegroupementFacture, KeepsTheEntryTypeOfEveryRow) {
  Grid grid(
      {Item{L"A", L"C1", L"T", L"V", L"X", true, L"G"}, Item{L"B", L"C1", L"T", L"V", L"X", true, L"P"}});
  group(grid);
  EXPECT_EQ("\"G\"", host::describe(grid.cell(0, IndTabGener_ColTypeDoc)));
  EXPECT_EQ("\"P\"", host::describe(grid.cell(1, IndTabGener_ColTypeDoc)));
}

TEST_F(RegroupementFacture, KeepsTheEntryTypeOfRowsWithEmptyKeys) {
  Grid grid(
      {Item{L"A", L"C1", L"T", L"V", L"X", true, L"G"}, Item{L"B", L"C1", L"T", L"V", L"X", true, L"P"}});
  for (const long row : {0L, 1L}) grid.set(row, IndTabGener_ColCodeVend, Variant());
  group(grid);
  EXPECT_EQ("\"G\"", host::describe(grid.cell(0, IndTabGener_ColTypeDoc)));
  EXPECT_EQ("\"P\"", host::describe(grid.cell(1, IndTabGener_ColTypeDoc)));
}

TEST_F(RegroupementFacture, ChangesNothingInAGridThatIsAlreadyGrouped) {
  Grid grid({Item{L"A", L"C1"}, Item{L"B", L"C1"}, Item{L"C", L"C2"}});
  const auto before = grid.content();
  group(grid);
  EXPECT_EQ(before, grid.content());
}

TEST_F(RegroupementFacture, KeepsASingleTickedRow) {
  Grid grid({Item{L"A"}});
  group(grid);
  EXPECT_EQ(Names{L"A"}, grid.names());
}

TEST_F(RegroupementFacture, DistinguishesLetterCaseOfKeys) {
  Grid grid({Item{L"A", L"c1"}, Item{L"B", L"C1"}, Item{L"C", L"c1"}});
  group(grid);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, GroupsNumbersOfDifferentTypesByValue) {
  Grid grid({Item{L"A"}, Item{L"B"}, Item{L"C"}});
  grid.set(0, IndTabGener_ColCodeVend, Variant(short{5}));
  grid.set(1, IndTabGener_ColCodeVend, host::text_value(L"5"));
  grid.set(2, IndTabGener_ColCodeVend, Variant(5.0));
  group(grid);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, ComparesEachRowWithTheFirstOfItsGroup) {
  // Empty equals both "" and 0, which are not equal: only the leader of a group decides.
  Grid led_by_empty({Item{L"A"}, Item{L"B"}, Item{L"C"}});
  led_by_empty.set(0, IndTabGener_ColCodeCli, Variant());
  led_by_empty.set(1, IndTabGener_ColCodeCli, host::text_value(L""));
  led_by_empty.set(2, IndTabGener_ColCodeCli, Variant(0L));
  group(led_by_empty);
  EXPECT_EQ((Names{L"A", L"B", L"C"}), led_by_empty.names());

  Grid led_by_text({Item{L"A"}, Item{L"B"}, Item{L"C"}});
  led_by_text.set(0, IndTabGener_ColCodeCli, host::text_value(L""));
  led_by_text.set(1, IndTabGener_ColCodeCli, Variant(0L));
  led_by_text.set(2, IndTabGener_ColCodeCli, Variant());
  group(led_by_text);
  EXPECT_EQ((Names{L"A", L"C", L"B"}), led_by_text.names());
}

TEST_F(RegroupementFacture, TakesANonZeroNumberForATick) {
  EXPECT_TRUE(stays_with_tick(Variant(1L)));
  EXPECT_TRUE(stays_with_tick(Variant(short{2})));
  EXPECT_TRUE(stays_with_tick(Variant(0.5)));
}

TEST_F(RegroupementFacture, TakesZeroEmptyAndNullForNoTick) {
  EXPECT_FALSE(stays_with_tick(Variant(0L)));
  EXPECT_FALSE(stays_with_tick(Variant(0.0)));
  EXPECT_FALSE(stays_with_tick(Variant()));
  EXPECT_FALSE(stays_with_tick(host::null_value()));
}

TEST_F(RegroupementFacture, DropsARowWhoseTypeIsNull) { EXPECT_FALSE(stays_with_type(host::null_value())); }

TEST_F(RegroupementFacture, KeepsARowOfAnyTypeThatIsNotExactlyTheInvoiceType) {
  EXPECT_TRUE(stays_with_type(host::text_value(L"f")));
  EXPECT_TRUE(stays_with_type(host::text_value(L"F ")));
  EXPECT_TRUE(stays_with_type(host::text_value(L"")));
  EXPECT_TRUE(stays_with_type(Variant()));
  EXPECT_TRUE(stays_with_type(Variant(5L)));
}

TEST_F(RegroupementFacture, TakesTheInvoiceTypeOfItsOwnNotOfTheHostsInstance) {
  const auto types = host::create_dispatch(L"General");
  ASSERT_EQ(S_OK, host::put_property(types.get(), L"c_sTypDoc_Fact", host::text_value(L"G")));
  generation_ = host::create<_Generation>(L"Generation");
  EXPECT_TRUE(stays_with_type(host::text_value(L"G")));
  EXPECT_FALSE(stays_with_type(host::text_value(L"F")));
}

TEST_F(RegroupementFacture, IgnoresNullKeysOfRowsThatAreNotGrouped) {
  Grid grid({Item{L"A"}, Item{L"B", L"C1", L"T", L"V", L"X", false},
             Item{L"C", L"C1", L"T", L"V", L"X", true, L"F"}});
  grid.set(1, IndTabGener_ColCodeCli, host::null_value());
  grid.set(2, IndTabGener_ColCodeCli, host::null_value());
  group(grid);
  EXPECT_EQ(Names{L"A"}, grid.names());
}

TEST_F(RegroupementFacture, KeepsObjectsOfTheGridAliveAndReleasesThoseOfDroppedRows) {
  auto kept = host::FakeObject::make();
  auto dropped = host::FakeObject::make();
  {
    Grid grid({Item{L"A"}, Item{L"B", L"C1", L"T", L"V", L"X", false}});
    grid.set(0, IndTabGener_ColRappTrait, host::object_value(kept.get()));
    grid.set(1, IndTabGener_ColRappTrait, host::object_value(dropped.get()));
    group(grid);
    EXPECT_EQ(2, kept->references());
    EXPECT_EQ(1, dropped->references());
    EXPECT_EQ(kept.get(), grid.cell(0, IndTabGener_ColRappTrait).pdispVal);
  }
  EXPECT_EQ(1, kept->references());
}

TEST_F(RegroupementFacture, DropsColumnsBeyondTheFourteenth) {
  Grid grid(2, Grid::kColumns + 2);
  for (const long row : {0L, 1L}) {
    grid.set(row, IndTabGener_ColSelect, host::bool_value(true));
    grid.set(row, IndTabGener_ColNom, host::text_value(row == 0 ? L"A" : L"B"));
    grid.set(row, 14, host::text_value(L"beyond"));
  }
  group(grid);
  EXPECT_EQ("0..1 x 0..13", grid.content()[0]);
  EXPECT_EQ((Names{L"A", L"B"}), grid.names());
}

TEST_F(RegroupementFacture, HandsBackAnArrayOfVariants) {
  Grid grid({Item{L"A"}, Item{L"B", L"C2"}});
  group(grid);
  VARTYPE type = VT_EMPTY;
  ASSERT_EQ(S_OK, SafeArrayGetVartype(grid.array(), &type));
  EXPECT_EQ(VT_VARIANT, type);
  EXPECT_EQ(0u, grid.array()->cLocks);
}

TEST_F(RegroupementFacture, GroupsThousandsOfRows) {
  constexpr long kRows = 6000;
  constexpr long kCustomers = 100;
  Grid grid(kRows);
  for (long row = 0; row < kRows; ++row) {
    grid.set(row, IndTabGener_ColSelect, host::bool_value(true));
    grid.set(row, IndTabGener_ColDate, Variant(row));
    grid.set(row, IndTabGener_ColCodeCli, host::text_value(std::to_wstring(row % kCustomers)));
  }
  group(grid);
  ASSERT_EQ(kRows, grid.rows());
  constexpr long kPerCustomer = kRows / kCustomers;
  for (long row = 0; row < kRows; ++row) {
    ASSERT_EQ(row / kPerCustomer + row % kPerCustomer * kCustomers, grid.cell(row, IndTabGener_ColDate).lVal);
  }
}

}  // namespace
