// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/sun_moment.h"

#include "oglview/add_option.h"
#include "oglview/user_error.h"
#include "scene/sun/sun_position.h"

#include <cmath>
#include <numbers>
#include <string>

namespace oglview {

void addMomentOptions(CLI::App& command, std::optional<DayAndPlace>& moment, MomentUse use) {
    const auto at = [&command, &moment, use]() -> DayAndPlace& {
        for (const char* part : {"--date", "--time", "--lat", "--lon"})
            if (use == MomentUse::MayBeGiven && command.count(part) == 0)
                throw UserError("the sun of a day takes --date, --time, --lat and --lon");
        return moment ? *moment : moment.emplace();
    };
    const bool required = use != MomentUse::MayBeGiven;
    const auto addPart = [&](const char* name, auto read, const char* what) {
        return command.add_option_function<std::string>(name, read, what)->required(required);
    };
    const auto addDegrees = [&](const char* name, double DayAndPlace::*part, double most,
                                const char* what) {
        const auto read = [=](double degrees) {
            checkRange(name, degrees, {-most, most});
            at().*part = degrees;
        };
        return command.add_option_function<double>(name, read, what)->type_name("DEGREES");
    };
    addPart(
        "--date", [at](const std::string& text) { at().day = parseDay(text); },
        "Day, as 2025-06-21")
        ->type_name("YYYY-MM-DD");
    if (use != MomentUse::WithoutTime)
        addPart(
            "--time", [at](const std::string& text) { at().minutes = parseTimeOfDay(text); },
            "Time of day, universal time")
            ->type_name("HH:MM");
    addDegrees("--lat", &DayAndPlace::latitude, 90.0, "Latitude, degrees, north positive")
        ->required(required);
    addDegrees("--lon", &DayAndPlace::longitude, 180.0, "Longitude, degrees, east positive")
        ->required(required);
    addDegrees("--north", &DayAndPlace::north, 360.0,
               "Direction of north in the model, from +x towards +y (90)");
}

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
