// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/sun_moment.h"

#include "oglview/user_error.h"

#include <cmath>
#include <numbers>

namespace oglview {

ogl::SunPosition calculateSun(const DayAndPlace& at) {
    ogl::SunMoment moment;
    moment.year = at.day.year;
    moment.month = at.day.month;
    moment.day = at.day.day;
    moment.minutes = at.minutes;
    moment.latitude = at.latitude;
    moment.longitude = at.longitude;
    moment.north = at.north * std::numbers::pi / 180.0;
    ogl::SunPosition sun;
    const int code = ogl::sunPosition(moment, sun);
    if (code != 0)
        throw UserError("the sun's position cannot be calculated: input " + std::to_string(code) +
                        " is out of its range");
    return sun;
}

SunPosition sunInModel(const DayAndPlace& moment) {
    constexpr double kDegrees = 180.0 / std::numbers::pi;
    const ogl::SunPosition sun = calculateSun(moment);
    const double x = -static_cast<double>(sun.direction.x);
    const double y = -static_cast<double>(sun.direction.y);
    return {std::atan2(y, x) * kDegrees, 90.0 - sun.zenith};
}

} // namespace oglview
