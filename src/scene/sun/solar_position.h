// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace ogl {

/// Inputs and results of the Solar Position Algorithm (I. Reda and A. Andreas, NREL, 2004), in the
/// order of the published record. Angles are degrees, northern latitudes and eastern longitudes
/// positive.
struct SolarPosition {
    // Inputs.
    int32_t year = 0; ///< -2000 .. 6000
    int32_t month = 0;
    int32_t day = 0;
    int32_t hour = 0; ///< 0 .. 24, in the time zone; 24 only as 24:00:00
    int32_t minute = 0;
    int32_t second = 0;
    double deltaT = 0.0;   ///< terrestrial time minus universal time, seconds, -8000 .. 8000
    double timezone = 0.0; ///< hours east of Greenwich, -18 .. 18
    double longitude = 0.0;
    double latitude = 0.0;
    double elevation = 0.0;             ///< metres, above -6,500,000
    double pressure = 0.0;              ///< millibars, 0 .. 5000
    double temperature = 0.0;           ///< degrees Celsius, above -273 .. 6000
    double slope = 0.0;                 ///< of a surface, not used by function 0
    double azimuthRotation = 0.0;       ///< of a surface, not used by function 0
    double atmosphericRefraction = 0.0; ///< at sunrise and sunset, -5 .. 5
    int32_t function = 0;               ///< 0: zenith and azimuth, the only one there is

    // What leads to the results.
    double julianDay = 0.0;
    double julianCentury = 0.0;
    double ephemerisDay = 0.0;
    double ephemerisCentury = 0.0;
    double ephemerisMillennium = 0.0;
    double earthLongitude = 0.0; ///< heliocentric
    double earthLatitude = 0.0;
    double earthRadius = 0.0;  ///< astronomical units
    double sunLongitude = 0.0; ///< geocentric
    double sunLatitude = 0.0;
    double moonElongation = 0.0; ///< mean, from the sun
    double sunAnomaly = 0.0;
    double moonAnomaly = 0.0;
    double moonLatitudeArgument = 0.0;
    double moonNode = 0.0; ///< longitude of its ascending node
    double nutationLongitude = 0.0;
    double nutationObliquity = 0.0;
    double meanObliquity = 0.0; ///< arc seconds
    double trueObliquity = 0.0;
    double aberration = 0.0;
    double apparentLongitude = 0.0;
    double meanSiderealTime = 0.0; ///< at Greenwich
    double siderealTime = 0.0;
    double rightAscension = 0.0;
    double declination = 0.0;
    double hourAngle = 0.0;
    double parallax = 0.0; ///< equatorial, horizontal
    double ascensionParallax = 0.0;
    double localDeclination = 0.0;
    double localAscension = 0.0;
    double localHourAngle = 0.0;
    double bareElevation = 0.0; ///< without refraction
    double elevationRefraction = 0.0;
    double sunElevation = 0.0;
    double equationOfTime = 0.0; ///< stays 0 in function 0, as do the next three
    double sunriseHourAngle = 0.0;
    double sunsetHourAngle = 0.0;
    double transitAltitude = 0.0;

    // Results.
    double zenith = 0.0;
    double azimuthAstro = 0.0; ///< from south to the west
    double azimuth = 0.0;      ///< from north to the east
    double incidence = 0.0;    ///< stays 0 in function 0, as does what follows
    double transit = 0.0;
    double sunrise = 0.0;
    double sunset = 0.0;
};
static_assert(offsetof(SolarPosition, deltaT) == 24);
static_assert(offsetof(SolarPosition, function) == 104);
static_assert(offsetof(SolarPosition, zenith) - offsetof(SolarPosition, julianDay) == 38 * 8);

/// Fills the results. Returns 0, or the published code of the first input out of its range, with
/// no result written: 1 year, 2 month, 3 day, 4 hour, 5 minute, 6 second, 7 deltaT, 8 timezone,
/// 9 longitude, 10 latitude, 11 elevation, 12 pressure, 13 temperature, 16 refraction.
int calculateSolarPosition(SolarPosition& sun);

} // namespace ogl
