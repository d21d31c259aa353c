// The date rules of recurrence, transcribed step by step on the platform's own functions: month after month,
// day after day, every intermediate text really written and read back. The yardstick of the random
// comparison. It must never ship: it converts each date through text at every step.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string>

#include "automation/variant.h"

namespace literal {

/// A text, or the number of the run-time fault that ended the method.
struct Outcome {
  int fault = 0;
  std::wstring text;
};

/// Periodicite.CheckDate.
Outcome check_date(const std::wstring& date);

/// Periodicite.LastDayOfMonth; the year variable becomes what the method leaves in it.
Outcome last_day_of_month(short month, velmosav::Variant& year);

/// Periodicite.GetPrevNextMonth, for the kind letter "M".
Outcome prev_next_month(const std::wstring& date, const Type_Periodicite& rule, bool previous);

/// Periodicite.GetDateOfDay; missing variables become what the method leaves in them. The walk gives up after
/// a week: fault 5.
Outcome date_of_day(const Type_Periodicite& rule, velmosav::Variant& month, velmosav::Variant& year);

}  // namespace literal
