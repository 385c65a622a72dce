// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/sun/sun_position.h"

#include "platform/local_date.h"
#include "scene/sun/solar_position.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace ogl {

namespace {

constexpr uint32_t kSunBits = kLightSunAndPortals | kLightSunPresent;
constexpr float kRadians = 0.017453292f;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kOneOverPi = 0.3183098861837907;

// What a host's scene does not say of its site.
constexpr double kDeltaT = 67.0;
constexpr double kSiteElevation = 350.0;
constexpr double kSitePressure = 820.0;
constexpr double kSiteTemperature = 11.0;
constexpr double kRefraction = 0.5667;

/// The vector turned about an axis of unit length, counter-clockwise seen against it.
Vec3 turned(Vec3 v, Vec3 axis, float degrees) {
    const float angle = degrees * kRadians;
    const float c = std::cos(angle);
    return v * c + cross(axis, v) * std::sin(angle) + axis * (dot(axis, v) * (1.0f - c));
}

SunState fromDate(const SCENE& scene, Vec3& direction) {
    const CalendarDate date = localDate(scene.sunDate);
    SunMoment moment{.year = date.year, .month = date.month, .day = date.day};
    moment.minutes = scene.sunMinutes;
    moment.latitude = static_cast<double>(scene.siteLatitude);
    moment.longitude = static_cast<double>(scene.siteLongitude);
    moment.north = scene.northAngle;
    SunPosition position;
    const int code = sunPosition(moment, position);
    if (code != 0) {
        std::printf("SPA Error Code: %d\n", code);
        return SunState::Unknown;
    }
    direction = position.direction;
    return SunState::Known;
}

SunState fromAngles(const SCENE& scene, Vec3& direction) {
    const Vec3 raised = turned({1, 0, 0}, {0, -1, 0}, static_cast<float>(scene.sunElevationAngle));
    direction = turned(raised, {0, 0, 1}, static_cast<float>(scene.sunAzimuthAngle));
    return SunState::Known;
}

} // namespace

int sunPosition(const SunMoment& moment, SunPosition& position) {
    SolarPosition sun;
    sun.year = moment.year;
    sun.month = moment.month;
    sun.day = moment.day;
    sun.hour = moment.minutes / 60;
    sun.minute = moment.minutes % 60;
    sun.deltaT = kDeltaT;
    sun.longitude = moment.longitude;
    sun.latitude = moment.latitude;
    sun.elevation = kSiteElevation;
    sun.pressure = kSitePressure;
    sun.temperature = kSiteTemperature;
    sun.atmosphericRefraction = kRefraction;
    const int code = calculateSolarPosition(sun);
    if (code != 0)
        return code;
    const double azimuth = sun.azimuth - (moment.north - kHalfPi) * kOneOverPi * 180.0;
    const Vec3 raised = turned({0, 1, 0}, {1, 0, 0}, static_cast<float>(90.0 - sun.zenith));
    position.zenith = sun.zenith;
    position.azimuth = sun.azimuth;
    position.direction = -turned(raised, {0, 0, -1}, static_cast<float>(azimuth));
    return 0;
}

std::optional<uint32_t> sunDate(int year, int month, int day) {
    constexpr int64_t kHalfDay = 43200;
    const std::chrono::sys_days midnight = std::chrono::year_month_day{
        std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
        std::chrono::day(static_cast<unsigned>(day))};
    const int64_t noon = std::chrono::seconds(midnight.time_since_epoch()).count() + kHalfDay;
    if (noon < 0 || noon > int64_t{UINT32_MAX})
        return std::nullopt;
    // Noon in Greenwich is the same day but in the far east, where the next one has begun.
    const auto seconds = static_cast<uint32_t>(noon);
    const bool isThatDay = localDate(seconds) == CalendarDate{year, month, day};
    return isThatDay ? seconds : seconds - static_cast<uint32_t>(kHalfDay);
}

SunState sunDirection(const SCENE& scene, Vec3& direction) {
    if ((scene.lightFlags & kSunBits) != kSunBits)
        return SunState::None;
    return (scene.lightFlags & kLightSunFromDate) != 0 ? fromDate(scene, direction)
                                                       : fromAngles(scene, direction);
}

} // namespace ogl
