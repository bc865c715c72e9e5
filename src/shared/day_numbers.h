// Day-number helpers for the calendar's own files, beside the public ones in quillon/calendar.h.
#pragma once

#include "quillon/calendar.h"

namespace quillon {

bool IsValidDayNumber(int32_t dayNumber);
// Unchecked forms for any day number from 0 on, past the last valid one too.
YearDay YearDayOfValid(int32_t dayNumber);
CivilDate CivilOfValid(int32_t dayNumber);

}  // namespace quillon
