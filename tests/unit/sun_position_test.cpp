// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/sun/sun_position.h"

#include "scene/sun/solar_position.h"
#include "support/captured_output.h"
#include "support/environment.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <numbers>

namespace ogl {
namespace {

/// The example of the algorithm's publication.
SolarPosition publishedExample() {
    SolarPosition sun;
    sun.year = 2003;
    sun.month = 10;
    sun.day = 17;
    sun.hour = 12;
    sun.minute = 30;
    sun.second = 30;
    sun.deltaT = 67.0;
    sun.timezone = -7.0;
    sun.longitude = -105.1786;
    sun.latitude = 39.742476;
    sun.elevation = 1830.14;
    sun.pressure = 820.0;
    sun.temperature = 11.0;
    sun.slope = 30.0;
    sun.azimuthRotation = -10.0;
    sun.atmosphericRefraction = 0.5667;
    return sun;
}

TEST(SolarPosition, IsAsPublished) {
    SolarPosition sun = publishedExample();
    ASSERT_EQ(calculateSolarPosition(sun), 0);
    EXPECT_NEAR(sun.zenith, 50.11162, 1e-5);
    EXPECT_NEAR(sun.azimuth, 194.34024, 1e-5);
    // Steps on the way, as published.
    EXPECT_NEAR(sun.julianDay, 2452930.312847, 1e-6);
    EXPECT_NEAR(sun.earthLongitude, 24.0182616917, 1e-9);
    EXPECT_NEAR(sun.earthLatitude, -0.0001011219, 1e-9);
    EXPECT_NEAR(sun.earthRadius, 0.9965422974, 1e-9);
    EXPECT_NEAR(sun.nutationLongitude, -0.00399840, 1e-8);
    EXPECT_NEAR(sun.nutationObliquity, 0.00166657, 1e-8);
    EXPECT_NEAR(sun.trueObliquity, 23.440465, 1e-6);
    EXPECT_NEAR(sun.rightAscension, 202.22741, 1e-5);
    EXPECT_NEAR(sun.declination, -9.31434, 1e-5);
    EXPECT_NEAR(sun.hourAngle, 11.105900, 2e-5);
}

TEST(SolarPosition, CountsDaysInBothCalendars) {
    const struct {
        int year, month, day, hour;
        double julianDay;
    } rows[] = {
        {2000, 1, 1, 12, 2451545.0},     {1999, 1, 1, 0, 2451179.5},
        {1987, 6, 19, 12, 2446966.0},    {1900, 1, 1, 0, 2415020.5},
        {1600, 12, 31, 0, 2305812.5},    {837, 4, 10, 6, 2026871.75},
        {-123, 12, 31, 0, 1676496.5},    {-1000, 7, 12, 12, 1356001.0},
        {-1001, 8, 17, 21, 1355671.375},
    };
    for (const auto& row : rows) {
        SolarPosition sun = publishedExample();
        sun.year = row.year;
        sun.month = row.month;
        sun.day = row.day;
        sun.hour = row.hour;
        sun.minute = sun.second = 0;
        sun.timezone = 0.0;
        ASSERT_EQ(calculateSolarPosition(sun), 0);
        EXPECT_NEAR(sun.julianDay, row.julianDay, 1e-6) << row.year;
    }
}

TEST(SolarPosition, NamesTheInputOutOfRange) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* name;
        int code;
        void (*spoil)(SolarPosition&, double nan);
    } rows[] = {
        {"year", 1, [](SolarPosition& s, double) { s.year = 6001; }},
        {"year before", 1, [](SolarPosition& s, double) { s.year = -2001; }},
        {"month", 2, [](SolarPosition& s, double) { s.month = 13; }},
        {"day", 3, [](SolarPosition& s, double) { s.day = 32; }},
        {"hour", 4, [](SolarPosition& s, double) { s.hour = 25; }},
        {"minute", 5, [](SolarPosition& s, double) { s.minute = 60; }},
        {"minute after 24", 5, [](SolarPosition& s, double) { s.hour = 24; }},
        {"second", 6, [](SolarPosition& s, double) { s.second = 60; }},
        {"second after 24", 6, [](SolarPosition& s, double) { s.hour = 24, s.minute = 0; }},
        {"no hour beyond 24", 0,
         [](SolarPosition& s, double) { s.hour = 24, s.minute = 0, s.second = 0; }},
        {"deltaT", 7, [](SolarPosition& s, double) { s.deltaT = 8001; }},
        {"timezone", 8, [](SolarPosition& s, double) { s.timezone = -18.5; }},
        {"longitude", 9, [](SolarPosition& s, double) { s.longitude = 181; }},
        {"latitude", 10, [](SolarPosition& s, double) { s.latitude = 91; }},
        {"latitude that is no number", 10, [](SolarPosition& s, double n) { s.latitude = n; }},
        {"elevation", 11, [](SolarPosition& s, double) { s.elevation = -6500001; }},
        {"pressure", 12, [](SolarPosition& s, double) { s.pressure = -1; }},
        {"temperature", 13, [](SolarPosition& s, double) { s.temperature = -273; }},
        {"slope, not used", 0, [](SolarPosition& s, double) { s.slope = 999; }},
        {"refraction", 16, [](SolarPosition& s, double) { s.atmosphericRefraction = 6; }},
    };
    for (const auto& row : rows) {
        SolarPosition sun = publishedExample();
        row.spoil(sun, nan);
        EXPECT_EQ(calculateSolarPosition(sun), row.code) << row.name;
        EXPECT_EQ(sun.zenith != 0.0, row.code == 0) << row.name;
    }
}

class SunDirection : public testing::Test {
  protected:
    SunDirection() : scene_(std::make_unique<SCENE>()) {
        scene_->lightFlags = kLightSunAndPortals | kLightSunPresent | kLightSunFromDate;
        scene_->northAngle = std::numbers::pi / 2;
        scene_->sunDate = 1750507200; // 21 June 2025, noon
        scene_->sunMinutes = 11 * 60;
        scene_->siteLatitude = 50.0f;
        scene_->siteLongitude = 10.0f;
    }
    SunState direction(Vec3& result) const { return sunDirection(*scene_, result); }
    std::unique_ptr<SCENE> scene_;
};

TEST_F(SunDirection, FollowsTheGivenAngles) {
    scene_->lightFlags = kLightSunAndPortals | kLightSunPresent;
    const struct {
        int16_t azimuth, elevation;
        Vec3 expected;
    } rows[] = {{0, 0, {1, 0, 0}},
                {90, 0, {0, 1, 0}},
                {0, -90, {0, 0, -1}},
                {30, -60, {0.4330127f, 0.25f, -0.8660254f}},
                {-120, 45, {-0.3535534f, -0.6123724f, 0.7071068f}}};
    for (const auto& row : rows) {
        scene_->sunAzimuthAngle = row.azimuth;
        scene_->sunElevationAngle = row.elevation;
        Vec3 light{};
        ASSERT_EQ(direction(light), SunState::Known);
        EXPECT_LT(length(light - row.expected), 1e-6f) << row.azimuth << ", " << row.elevation;
    }
}

// Noon in Greenwich is the same day in nearly every time zone. A clock of 31 bits ends on
// 19 January 2038, one of 32 bits on 7 February 2106.
TEST_F(SunDirection, KnowsEveryDayThatTheRecordCanHold) {
    const struct {
        const char* zone; ///< null: nearly any
        uint32_t seconds;
        int year, month, day;
    } rows[] = {
        {nullptr, 43200, 1970, 1, 1},
        {nullptr, 2147428800, 2038, 1, 18},
        {nullptr, 2147515200, 2038, 1, 19},
        {nullptr, 4107499200, 2100, 2, 28},
        {nullptr, 4107585600, 2100, 3, 1},
        {nullptr, 4294900800, 2106, 2, 6},
        {"UTC0", 0, 1970, 1, 1},
        {"UTC0", 0xffffffff, 2106, 2, 7},
        {"WST8", 0, 1969, 12, 31},
        {"WST8", 0xffffffff, 2106, 2, 6},
        {"WST8", 0x80000000, 2038, 1, 18},
        {"EST-18", 0xffffffff, 2106, 2, 8},
    };
    for (const auto& row : rows) {
        if (row.zone != nullptr && !test::platformLayerIsOurs())
            continue; // the system has one zone for all programs
        const test::ScopedEnvironment zone("TZ", row.zone != nullptr ? row.zone : "UTC0");
        SunMoment moment{.year = row.year, .month = row.month, .day = row.day};
        moment.minutes = scene_->sunMinutes;
        moment.latitude = 50.0;
        moment.longitude = 10.0;
        moment.north = scene_->northAngle;
        SunPosition expected;
        ASSERT_EQ(sunPosition(moment, expected), 0);
        scene_->sunDate = row.seconds;
        Vec3 light{};
        ASSERT_EQ(direction(light), SunState::Known) << row.seconds;
        EXPECT_EQ(length(light - expected.direction), 0.0f) << row.seconds;
    }
}

TEST_F(SunDirection, SaysWhatIsWrong) {
    const struct {
        const char* name;
        float latitude;
        int16_t minutes;
        const char* line;
    } rows[] = {{"latitude", 91.0f, 720, "SPA Error Code: 10\n"},
                {"minute after 24", 50.0f, 1441, "SPA Error Code: 5\n"},
                {"hour", 50.0f, 1500, "SPA Error Code: 4\n"}};
    for (const auto& row : rows) {
        scene_->siteLatitude = row.latitude;
        scene_->sunMinutes = row.minutes;
        Vec3 light{5, 6, 7};
        test::CapturedOutput output(1);
        const SunState state = direction(light);
        EXPECT_EQ(output.stop(), row.line) << row.name;
        EXPECT_EQ(state, SunState::Unknown) << row.name;
        EXPECT_EQ(light.x, 5.0f) << row.name;
    }
}

TEST_F(SunDirection, TurnsWithNorth) {
    Vec3 plain{};
    ASSERT_EQ(direction(plain), SunState::Known);
    scene_->northAngle = std::numbers::pi; // north along -x
    Vec3 light{};
    ASSERT_EQ(direction(light), SunState::Known);
    EXPECT_LT(length(light - Vec3{-plain.y, plain.x, plain.z}), 1e-6f);
}

} // namespace
} // namespace ogl
