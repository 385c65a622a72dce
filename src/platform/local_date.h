// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace ogl {

/// A day of the Gregorian calendar.
struct CalendarDate {
    int year = 0;
    int month = 0; ///< 1 .. 12
    int day = 0;

    bool operator==(const CalendarDate&) const = default;
};

/// The day in the system's time zone, `seconds` after 1970 began in universal time.
CalendarDate localDate(uint32_t seconds);

} // namespace ogl
