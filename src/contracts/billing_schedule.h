// The billing schedule of a contract: rows indexed from 0, each covering a period, both ends included.
//
// Dates are texts. Every date produced here is written "dd/mm/yy" and read back by the user's regional
// settings; differences are in whole days. A text that is no date is fault 13 wherever a computation needs
// it.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include "automation/text.h"
#include "automation/variant.h"
#include "constants/constant_sets.h"

namespace velmosav {

/// The day before the start of the next period.
Bstr period_end_before(std::wstring_view next_start);
/// The day after the end of the previous period.
Bstr period_start_after(std::wstring_view previous_end);
/// The same two, held at or before the contract's end. Neither is held at or after its start.
Bstr capped_period_start_after(const Type_Contrat& contract, std::wstring_view previous_end);
Bstr capped_period_end_before(const Type_Contrat& contract, std::wstring_view next_start);

/// Carries an edited date of a row over to its neighbours, row by row, until a period absorbs it.
/// `start`: the row's start was edited and earlier rows move; else its end was, and later rows move.
/// Returns the last row changed (the edited row when none is), or -1: then the contract is untouched, as it
/// is when a fault stops the computation.
short spread_edited_date(Type_Contrat& contract, short row, std::wstring_view date, bool start);

/// The arguments of a row to add.
struct NewInstalment {
  std::wstring_view invoicing_date;
  std::wstring_view start;  // ignored for the first row, which starts with the contract
  std::wstring_view end;
};

/// Writes a row at `index` (-1: after the last), set to the index used. The schedule ends at that row: later
/// ones are dropped. Returns the index, or -1 for a negative one: nothing is changed then.
short add_instalment(Type_Contrat& contract, const ContratDocConstants& labels,
                     const NewInstalment& instalment, short& index);

/// End of the last row, or of the last transferred one; without any, `fallback`, and without that the
/// contract's start.
std::wstring_view last_period_end(const Type_Contrat& contract, bool transferred_only,
                                  std::wstring_view fallback);

/// Rows that are invoiced: they have an invoice code that is not blank, or were transferred. 0 without a
/// schedule.
short invoiced_row_count(const Type_Contrat& contract);
/// Whether the amount of at least one row was forced by hand.
bool has_forced_row(const Type_Contrat& contract);

/// Whether billing rows are invoiced (`check_billing`) or work orders issued (`check_interventions`, for one
/// intervention or, with -1, for any). The optional arguments become what they were read as.
bool is_committed(const Type_Contrat& contract, VARIANT* check_billing, VARIANT* check_interventions,
                  VARIANT* intervention);

/// Last day of a duration that starts on `start` (today when it is no date); `unit` is a unit code of
/// General.
Bstr end_of_duration(std::wstring_view start, long duration, std::wstring_view unit);

}  // namespace velmosav
