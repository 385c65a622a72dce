// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The sun of a day, a time of day and a place.
#pragma once

#include "oglview/parse_values.h"

#include <optional>

namespace CLI {
class App;
}

namespace ogl {
struct SunPosition;
}

namespace oglview {

struct DayAndPlace {
    CalendarDay day;
    int minutes = 0;        ///< of the day, universal time
    double latitude = 0.0;  ///< degrees, north positive
    double longitude = 0.0; ///< degrees, east positive
    double north = 90.0;    ///< direction of north in the model, degrees; 90 = +y
};

enum class MomentUse {
    MayBeGiven, ///< all parts or none
    Required,
    WithoutTime, ///< required, but for the time of day, which the command knows otherwise
};

/// Adds --date, --time, --lat, --lon and --north, which are read into `moment`; it must stay.
void addMomentOptions(CLI::App& command, std::optional<DayAndPlace>& moment, MomentUse use);

/// Where the sun stands.
struct SunPosition {
    double azimuthDegrees = 230.0; ///< counter-clockwise from +x, seen from above
    double elevationDegrees = 42.0;
};

/// Where the library puts the sun. Throws UserError for what it cannot take.
ogl::SunPosition calculateSun(const DayAndPlace& at);

/// Where the sun stands at that moment, as seen in the model.
SunPosition sunInModel(const DayAndPlace& moment);

} // namespace oglview
