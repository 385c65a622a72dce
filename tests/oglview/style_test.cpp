// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// How a model is drawn: from the command line and the keys to the scene's record.
#include "oglview/command_line.h"
#include "oglview/scene_style.h"
#include "oglview/style_keys.h"
#include "oglview/user_error.h"
#include "platform/local_date.h"
#include "support/environment.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace oglview;

StyleOptions styleOf(std::vector<const char*> options) {
    std::vector<const char*> words = {"oglview", "render", "flat", "-o", "a.png"};
    words.insert(words.end(), options.begin(), options.end());
    return std::get<RenderOptions>(readCommandLine(static_cast<int>(words.size()), words.data()))
        .style;
}

/// A scene of one triangle.
class Style : public testing::Test {
  protected:
    void SetUp() override {
        const auto material = builder_.addMaterial({});
        const auto object = builder_.addObject("wall");
        ogl::host::Polygon wall;
        wall.material = material;
        wall.outline = {{0, 0, 0}, {1, 0, 0}, {0, 0, 1}};
        ASSERT_TRUE(builder_.addPolygon(object, wall));
        builder_.build();
    }
    const ogl::SCENE& apply(const StyleOptions& style) {
        applyStyle(builder_, style);
        return *builder_.scene();
    }

    ogl::host::SceneBuilder builder_;
};

TEST_F(Style, PhotoOptionsReachTheRecord) {
    const ogl::SCENE& scene = apply(
        styleOf({"--mode",       "photo",   "--exposure", "1.5",        "--gamma",     "0.8",
                 "--saturation", "1.25",    "--ambient",  "70",         "--occlusion", "120",
                 "--sketch",     "35",      "--mono",     "--interior", "yes",         "--date",
                 "2026-03-20",   "--time",  "13:45",      "--lat",      "52.5",        "--lon",
                 "13.25",        "--north", "60"}));
    EXPECT_EQ(scene.renderMode, ogl::kRenderModePhoto);
    EXPECT_EQ(scene.exposure, 1.5f);
    EXPECT_EQ(scene.toneGamma, 0.8f);
    EXPECT_EQ(scene.saturation, 1.25f);
    EXPECT_EQ(scene.ambientLevel, 70);
    EXPECT_EQ(scene.aoStrength, 120);
    EXPECT_EQ(scene.edgeStrength, 35);
    EXPECT_EQ(scene.lightFlags & 0x5f0000u, 0x5f0000u); // sun by date, interior, sketch, mono
    EXPECT_EQ(scene.sunMinutes, 13 * 60 + 45);
    EXPECT_EQ(scene.siteLatitude, 52.5f);
    EXPECT_EQ(scene.siteLongitude, 13.25f);
    EXPECT_NEAR(scene.northAngle, std::acos(0.5), 1e-12);
    EXPECT_EQ(ogl::localDate(scene.sunDate), (ogl::CalendarDate{2026, 3, 20}));
}

TEST_F(Style, PhotoModeIsPlainWithoutOptions) {
    const ogl::SCENE& scene = apply(styleOf({"--mode", "photo", "--sun", "90,10"}));
    EXPECT_EQ(scene.lightFlags & 0x5c0000u, 0u);
    EXPECT_EQ(scene.sunElevationAngle, -10);                               // its light falls
    EXPECT_EQ((static_cast<int>(scene.sunAzimuthAngle) + 360) % 360, 270); // and travels to -y
    // A low sun is weaker and redder than a high one.
    const int low = scene.sunIntensity;
    const int lowBlue = scene.sunColor.blue;
    apply(styleOf({"--mode", "photo", "--sun", "90,60"}));
    EXPECT_GT(scene.sunIntensity, low);
    EXPECT_GT(scene.sunColor.blue, lowBlue);
}

TEST_F(Style, TakesTheDaysThatTheRecordCanHold) {
    const auto applyDate = [this](const char* date) -> const ogl::SCENE& {
        return apply(styleOf(
            {"--mode", "photo", "--date", date, "--time", "12:00", "--lat", "0", "--lon", "0"}));
    };
    for (const char* date : {"1969-07-20", "1969-12-31", "2106-02-07"})
        EXPECT_THROW(applyDate(date), UserError) << date;
    for (const char* zone : {"UTC0", "WST12", "EST-14"}) {
        const ogl::test::ScopedEnvironment there("TZ", zone);
        EXPECT_EQ(ogl::localDate(applyDate("1970-01-01").sunDate), (ogl::CalendarDate{1970, 1, 1}))
            << zone;
        EXPECT_EQ(ogl::localDate(applyDate("2106-02-06").sunDate), (ogl::CalendarDate{2106, 2, 6}))
            << zone;
    }
}

TEST(StyleKeys, ChangeWhatTheySay) {
    StyleOptions style;
    style.photo.exposure = 1.0;
    ASSERT_TRUE(changeStyle('4', style));
    EXPECT_EQ(style.mode, ogl::kRenderModePhoto);
    for (int times = 0; times < 8; ++times)
        changeStyle('V', style);
    EXPECT_NEAR(style.photo.exposure.value_or(0.0), 2.0, 1e-5);
    for (int times = 0; times < 100; ++times)
        changeStyle('B', style);
    EXPECT_EQ(style.photo.gamma, 0.05);
    changeStyle('O', style);
    EXPECT_EQ(style.photo.occlusionPercent, 0);
    changeStyle('O', style);
    EXPECT_FALSE(style.photo.occlusionPercent.has_value());

    const double azimuth = style.sun.azimuthDegrees;
    changeStyle('L', style);
    EXPECT_EQ(style.sun.azimuthDegrees, azimuth - 3.75);
    style.sunMoment = DayAndPlace{};
    changeStyle('J', style);
    EXPECT_EQ(style.sunMoment->minutes, 24 * 60 - 15);
    changeStyle('L', style);
    EXPECT_EQ(style.sunMoment->minutes, 0);
    EXPECT_FALSE(changeStyle('Z', style));
}

} // namespace
