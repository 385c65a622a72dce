// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/local_date.h"

#include "platform/win32.h"

namespace ogl {

// The compiler's runtime ends in 2038 on 32-bit Windows, _localtime64 too; the system does not.
CalendarDate localDate(uint32_t seconds) {
    constexpr uint64_t kSecondsFrom1601To1970 = 11644473600;
    constexpr uint64_t kTicksPerSecond = 10000000;
    const uint64_t ticks = (kSecondsFrom1601To1970 + seconds) * kTicksPerSecond;
    const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    FileTimeToSystemTime(&time, &universal);
    SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
    return {local.wYear, local.wMonth, local.wDay};
}

} // namespace ogl
