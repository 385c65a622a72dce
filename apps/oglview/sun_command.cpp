// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/user_error.h"
#include "scene/sun_position.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <numbers>

namespace oglview {

int sunCommand(const SunOptions& options) {
    ogl::SunMoment moment;
    moment.year = options.day.year;
    moment.month = options.day.month;
    moment.day = options.day.day;
    moment.minutes = options.minutes;
    moment.latitude = options.latitude;
    moment.longitude = options.longitude;
    moment.north = options.north * std::numbers::pi / 180.0;
    ogl::SunPosition sun;
    const int code = ogl::sunPosition(moment, sun);
    if (code != 0)
        throw UserError("the sun's position cannot be calculated: input " + std::to_string(code) +
                        " is out of its range");
    const double direction[] = {static_cast<double>(sun.direction.x),
                                static_cast<double>(sun.direction.y),
                                static_cast<double>(sun.direction.z)};
    if (options.json) {
        const nlohmann::ordered_json document = {
            {"zenith", sun.zenith}, {"azimuth", sun.azimuth}, {"direction", direction}};
        std::printf("%s\n", document.dump().c_str());
    } else {
        std::printf("zenith %.5f  azimuth %.5f  direction %.6f %.6f %.6f\n", sun.zenith,
                    sun.azimuth, direction[0], direction[1], direction[2]);
    }
    return 0;
}

} // namespace oglview
