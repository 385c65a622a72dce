// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Numbers of equations are those of NREL/TP-560-34302.
#include "scene/sun/solar_position.h"

#include "scene/sun/solar_terms.h"

#include <array>
#include <cmath>
#include <numbers>

namespace ogl {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr double kJ2000 = 2451545.0;
constexpr double kGregorianStart = 2299160.0;
constexpr double kSunRadius = 0.26667; ///< as seen, degrees
constexpr double kEarthFlattening = 0.99664719;
constexpr double kEarthRadiusMetres = 6378140.0;

double sinOf(double degrees) {
    return std::sin(degrees / kDegrees);
}

double cosOf(double degrees) {
    return std::cos(degrees / kDegrees);
}

double tanOf(double degrees) {
    return std::tan(degrees / kDegrees);
}

/// Into 0 .. 360.
double wholeTurn(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

template <size_t count> double polynomial(const std::array<double, count>& factors, double t) {
    double sum = 0.0;
    for (size_t k = count; k-- > 0;)
        sum = sum * t + factors[k];
    return sum;
}

/// False for what is no number, too.
bool isWithin(double value, double low, double high) {
    return value >= low && value <= high;
}

int checkTime(const SolarPosition& sun) {
    if (sun.year < -2000 || sun.year > 6000)
        return 1;
    if (sun.month < 1 || sun.month > 12)
        return 2;
    if (sun.day < 1 || sun.day > 31)
        return 3;
    if (sun.hour < 0 || sun.hour > 24)
        return 4;
    if (sun.minute < 0 || sun.minute > 59)
        return 5;
    if (sun.second < 0 || sun.second > 59)
        return 6;
    return 0;
}

int checkPlace(const SolarPosition& sun) {
    if (!isWithin(sun.pressure, 0.0, 5000.0))
        return 12;
    if (!(sun.temperature > -273.0 && sun.temperature <= 6000.0))
        return 13;
    if (sun.hour == 24 && sun.minute > 0)
        return 5;
    if (sun.hour == 24 && sun.second > 0)
        return 6;
    if (!isWithin(sun.deltaT, -8000.0, 8000.0))
        return 7;
    if (!isWithin(sun.timezone, -18.0, 18.0))
        return 8;
    if (!isWithin(sun.longitude, -180.0, 180.0))
        return 9;
    if (!isWithin(sun.latitude, -90.0, 90.0))
        return 10;
    if (!isWithin(sun.atmosphericRefraction, -5.0, 5.0))
        return 16;
    return sun.elevation >= -6500000.0 ? 0 : 11;
}

/// Equation 4.
double julianDayOf(const SolarPosition& sun) {
    const double minutes = sun.minute + sun.second / 60.0;
    const double day = sun.day + (sun.hour - sun.timezone + minutes / 60.0) / 24.0;
    // January and February count as months of the year before.
    const bool early = sun.month < 3;
    const int year = early ? sun.year - 1 : sun.year;
    const int month = early ? sun.month + 12 : sun.month;
    const double julian =
        std::trunc(365.25 * (year + 4716.0)) + std::trunc(30.6001 * (month + 1.0)) + day - 1524.5;
    if (julian <= kGregorianStart)
        return julian;
    const double century = std::trunc(year / 100.0);
    return julian + 2.0 - century + std::trunc(century / 4.0);
}

/// Equations 5 to 8.
void setTimes(SolarPosition& sun) {
    sun.julianDay = julianDayOf(sun);
    sun.julianCentury = (sun.julianDay - kJ2000) / 36525.0;
    sun.ephemerisDay = sun.julianDay + sun.deltaT / 86400.0;
    sun.ephemerisCentury = (sun.ephemerisDay - kJ2000) / 36525.0;
    sun.ephemerisMillennium = sun.ephemerisCentury / 10.0;
}

/// Equations 9 to 11.
double seriesValue(std::span<const PeriodicTerms> series, double t) {
    double sum = 0.0;
    double power = 1.0;
    for (const PeriodicTerms& terms : series) {
        double part = 0.0;
        for (const PeriodicTerm& term : terms)
            part += term.amplitude * std::cos(term.phase + term.frequency * t);
        sum += part * power;
        power *= t;
    }
    return sum / 1e8;
}

/// Equations 12 to 14.
void setEarthAndSun(SolarPosition& sun) {
    const double t = sun.ephemerisMillennium;
    sun.earthLongitude = wholeTurn(seriesValue(longitudeSeries(), t) * kDegrees);
    sun.earthLatitude = seriesValue(latitudeSeries(), t) * kDegrees;
    sun.earthRadius = seriesValue(radiusSeries(), t);
    sun.sunLongitude = wholeTurn(sun.earthLongitude + 180.0);
    sun.sunLatitude = -sun.earthLatitude;
}

/// Equations 15 to 23.
void setNutation(SolarPosition& sun) {
    const double t = sun.ephemerisCentury;
    sun.moonElongation =
        polynomial(std::array{297.85036, 445267.111480, -0.0019142, 1.0 / 189474.0}, t);
    sun.sunAnomaly =
        polynomial(std::array{357.52772, 35999.050340, -0.0001603, -1.0 / 300000.0}, t);
    sun.moonAnomaly = polynomial(std::array{134.96298, 477198.867398, 0.0086972, 1.0 / 56250.0}, t);
    sun.moonLatitudeArgument =
        polynomial(std::array{93.27191, 483202.017538, -0.0036825, 1.0 / 327270.0}, t);
    sun.moonNode = polynomial(std::array{125.04452, -1934.136261, 0.0020708, 1.0 / 450000.0}, t);
    const double arguments[] = {sun.moonElongation, sun.sunAnomaly, sun.moonAnomaly,
                                sun.moonLatitudeArgument, sun.moonNode};
    double longitude = 0.0;
    double obliquity = 0.0;
    for (const NutationTerm& term : nutationTerms()) {
        double angle = 0.0;
        for (size_t k = 0; k < std::size(arguments); ++k)
            angle += arguments[k] * term.multiples[k];
        longitude += (term.longitude + term.longitudePerT * t) * sinOf(angle);
        obliquity += (term.obliquity + term.obliquityPerT * t) * cosOf(angle);
    }
    constexpr double kUnitsPerDegree = 36000000.0;
    sun.nutationLongitude = longitude / kUnitsPerDegree;
    sun.nutationObliquity = obliquity / kUnitsPerDegree;
}

/// Equations 24 to 31.
void setEquator(SolarPosition& sun) {
    sun.meanObliquity = polynomial(std::array{84381.448, -4680.93, -1.55, 1999.25, -51.38, -249.67,
                                              -39.05, 7.12, 27.87, 5.79, 2.45},
                                   sun.ephemerisMillennium / 10.0);
    sun.trueObliquity = sun.meanObliquity / 3600.0 + sun.nutationObliquity;
    sun.aberration = -20.4898 / (3600.0 * sun.earthRadius);
    sun.apparentLongitude = sun.sunLongitude + sun.nutationLongitude + sun.aberration;
    const double t = sun.julianCentury;
    sun.meanSiderealTime = wholeTurn(280.46061837 + 360.98564736629 * (sun.julianDay - kJ2000) +
                                     t * t * (0.000387933 - t / 38710000.0));
    sun.siderealTime = sun.meanSiderealTime + sun.nutationLongitude * cosOf(sun.trueObliquity);
    const double sine = sinOf(sun.apparentLongitude);
    const double tilt = sun.trueObliquity;
    sun.rightAscension =
        wholeTurn(std::atan2(sine * cosOf(tilt) - tanOf(sun.sunLatitude) * sinOf(tilt),
                             cosOf(sun.apparentLongitude)) *
                  kDegrees);
    sun.declination = std::asin(sinOf(sun.sunLatitude) * cosOf(tilt) +
                                cosOf(sun.sunLatitude) * sinOf(tilt) * sine) *
                      kDegrees;
}

/// Equations 32 to 40: the sun as seen from the place instead of the Earth's centre.
void setLocalSun(SolarPosition& sun) {
    sun.hourAngle = wholeTurn(sun.siderealTime + sun.longitude - sun.rightAscension);
    sun.parallax = 8.794 / (3600.0 * sun.earthRadius);
    const double u = std::atan(kEarthFlattening * tanOf(sun.latitude));
    const double height = sun.elevation / kEarthRadiusMetres;
    const double x = std::cos(u) + height * cosOf(sun.latitude);
    const double y = kEarthFlattening * std::sin(u) + height * sinOf(sun.latitude);
    const double across = x * sinOf(sun.parallax);
    const double along = cosOf(sun.declination) - across * cosOf(sun.hourAngle);
    const double shift = std::atan2(-across * sinOf(sun.hourAngle), along);
    sun.ascensionParallax = shift * kDegrees;
    sun.localAscension = sun.rightAscension + sun.ascensionParallax;
    sun.localDeclination =
        std::atan2((sinOf(sun.declination) - y * sinOf(sun.parallax)) * std::cos(shift), along) *
        kDegrees;
    sun.localHourAngle = sun.hourAngle - sun.ascensionParallax;
}

/// Equations 41 to 47.
void setHorizon(SolarPosition& sun) {
    const double sinLatitude = sinOf(sun.latitude);
    const double cosLatitude = cosOf(sun.latitude);
    const double cosHour = cosOf(sun.localHourAngle);
    sun.bareElevation = std::asin(sinLatitude * sinOf(sun.localDeclination) +
                                  cosLatitude * cosOf(sun.localDeclination) * cosHour) *
                        kDegrees;
    // The air bends nothing that is wholly below the horizon.
    const double bare = sun.bareElevation;
    if (bare >= -(kSunRadius + sun.atmosphericRefraction))
        sun.elevationRefraction = sun.pressure / 1010.0 * 283.0 / (273.0 + sun.temperature) * 1.02 /
                                  (60.0 * tanOf(bare + 10.3 / (bare + 5.11)));
    else
        sun.elevationRefraction = 0.0;
    sun.sunElevation = bare + sun.elevationRefraction;
    sun.zenith = 90.0 - sun.sunElevation;
    sun.azimuthAstro =
        wholeTurn(std::atan2(sinOf(sun.localHourAngle),
                             cosHour * sinLatitude - tanOf(sun.localDeclination) * cosLatitude) *
                  kDegrees);
    sun.azimuth = wholeTurn(sun.azimuthAstro + 180.0);
}

} // namespace

int calculateSolarPosition(SolarPosition& sun) {
    int code = checkTime(sun);
    if (code == 0)
        code = checkPlace(sun);
    if (code != 0)
        return code;
    setTimes(sun);
    setEarthAndSun(sun);
    setNutation(sun);
    setEquator(sun);
    setLocalSun(sun);
    setHorizon(sun);
    return 0;
}

} // namespace ogl
