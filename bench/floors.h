// What the library must reach: one row for each measurement, read by the check and by the report.
#pragma once

#include <array>
#include <string_view>

namespace bench {

enum class Bound {
  AtLeast,     // the peer takes at least `limit` times as long
  AtMost,      // the library takes at most `limit` times as long
  AtMostMore,  // the library takes at most `limit` nanoseconds more
};

struct Floor {
  std::string_view id;
  std::string_view work;
  std::string_view against;
  Bound bound;
  double limit;
};

inline constexpr std::array kFloors{
    Floor{"late-get", "late-bound property get", "`ITypeInfo::Invoke` on the same object", Bound::AtLeast, 6},
    Floor{"names", "`GetIDsOfNames`", "`DispGetIDsOfNames`", Bound::AtLeast, 10},
    Floor{"late-record", "late-bound call with a record and a result", "early-bound call of the same",
          Bound::AtMostMore, 120},
    Floor{"create-general", "create and release `General`", "create and release `Adresses`", Bound::AtMost,
          5},
    Floor{"create-contratdoc", "create and release `ContratDoc`", "create and release `Adresses`",
          Bound::AtMost, 5},
    Floor{"neighbour-platform", "neighbour date", "platform date route", Bound::AtLeast, 40},
    Floor{"duration-platform", "`SetDateByDuree`", "platform date route", Bound::AtLeast, 40},
    Floor{"check-platform", "`CheckDate` of a 31 February", "platform date route", Bound::AtLeast, 40},
    Floor{"month-platform", "`GetPrevNextMonth`", "platform date route", Bound::AtLeast, 40},
    Floor{"neighbour-text", "neighbour date", "one result text allocated and freed", Bound::AtMost, 4},
    Floor{"duration-text", "`SetDateByDuree`", "one result text allocated and freed", Bound::AtMost, 4},
    Floor{"check-text", "`CheckDate` of a 31 February", "one result text allocated and freed", Bound::AtMost,
          4},
    Floor{"month-text", "`GetPrevNextMonth`", "one result text allocated and freed", Bound::AtMost, 4},
    Floor{"group-literal", "`RegroupementFacture`, 32,000 rows, 8,000 groups", "literal algorithm",
          Bound::AtLeast, 500},
    Floor{"group-copy", "`RegroupementFacture`, 32,000 rows, 8,000 groups", "`SafeArrayCopy` of the grid",
          Bound::AtMost, 1},
    Floor{"group-copy-one", "`RegroupementFacture`, 32,000 rows, one group", "`SafeArrayCopy` of the grid",
          Bound::AtMost, 1},
    Floor{"group-copy-all", "`RegroupementFacture`, 32,000 rows, 32,000 groups",
          "`SafeArrayCopy` of the grid", Bound::AtMost, 1},
    Floor{"labels", "`CheckLibInterCtt`, 4,000 interventions without clash", "literal algorithm",
          Bound::AtLeast, 200},
    Floor{"modifiable", "`IsInfosIntervModifiable` of all, 4,000 interventions and 4,000 scheduled",
          "literal algorithm", Bound::AtLeast, 200},
    Floor{"spread-dates",
          "`CadFact_SpreadPeriodDateEdition`, 2,000 rows, 4,000 interventions; the next row absorbs",
          "literal algorithm", Bound::AtLeast, 200},
    Floor{"spread-all", "the same, all rows move", "literal algorithm", Bound::AtLeast, 200},
    // No text fits where the former one lies: two new ones a row, and two to free.
    Floor{"spread-all-rewritten", "the same, all rows move, from dates with four digits of the year",
          "literal algorithm", Bound::AtLeast, 50},
    Floor{"spread-amount", "`GetAmountByRepartTVA`, 5 codes in use", "literal algorithm", Bound::AtLeast, 5},
    Floor{"count-codes", "`ListeCodes_NbCodes`, 20,000 codes", "literal algorithm", Bound::AtLeast, 50},
    Floor{"extract-codes", "`ListeCodes_ExtractionCode` of the last of 20,000 codes", "literal algorithm",
          Bound::AtLeast, 50},
    Floor{"invoice-row", "`AddCttToInvoiceXML` onto an invoice of 500 rows",
          "bare DOM load and serialise of the same text", Bound::AtMost, 1.3},
    Floor{"demo-host", "the demonstration host, 10,000 instalments into 1,000 invoices",
          "the same texts made with nothing but the DOM", Bound::AtMost, 1.5},
};

constexpr const Floor& floor_of(std::string_view id) {
  for (const Floor& floor : kFloors) {
    if (floor.id == id) return floor;
  }
  throw "no such floor";
}

}  // namespace bench
