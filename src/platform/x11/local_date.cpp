// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/local_date.h"

#include <ctime>

namespace ogl {

CalendarDate localDate(uint32_t seconds) {
    static_assert(sizeof(std::time_t) > sizeof seconds, "a clock of 31 bits ends in 2038");
    const std::time_t time = seconds;
    std::tm local{};
    tzset(); // localtime_r need not look at TZ
    localtime_r(&time, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

} // namespace ogl
