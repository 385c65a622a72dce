// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

#include <cstdint>
#include <optional>

namespace ogl {

/// Date, time of day and place of a sun.
struct SunMoment {
    int year = 0;
    int month = 0; ///< 1 .. 12
    int day = 0;
    int minutes = 0;        ///< of the day, universal time
    double latitude = 0.0;  ///< degrees, north positive
    double longitude = 0.0; ///< degrees, east positive
    double north = 0.0;     ///< direction of north in the scene, radians; pi / 2 is +y
};

struct SunPosition {
    double zenith = 0.0;  ///< degrees from straight above
    double azimuth = 0.0; ///< degrees from north to the east
    Vec3 direction{};     ///< unit vector in which the light travels, z up
};

/// Where the sun stands, with the air and height that the library assumes. Returns 0, or the code
/// of calculateSolarPosition.
int sunPosition(const SunMoment& moment, SunPosition& position);

enum class SunState {
    None,   ///< the scene has no sun
    Known,  ///< there is one, with this direction
    Unknown ///< there is one, but its date or place is unusable: keep the last direction
};

/// A local day as scenes hold it (SCENE::sunDate), from 1970 to 6 February 2106; nothing for
/// others.
std::optional<uint32_t> sunDate(int year, int month, int day);

/// The unit direction in which the scene's sun light travels, from date and place or from the
/// stored angles, as the scene says. An unusable date or place leaves a line with its code on the
/// standard output.
SunState sunDirection(const SCENE& scene, Vec3& direction);

} // namespace ogl
