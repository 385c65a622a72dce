// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The options that subcommands share, and how they are drawn: from the command line and the keys to
// the scene's record. What belongs to one subcommand is seen by running it.
#include "oglview/model_options.h"
#include "oglview/scene_style.h"
#include "oglview/style_keys.h"
#include "oglview/user_error.h"
#include "oglview/view_options.h"
#include "platform/local_date.h"
#include "support/environment.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace oglview;

/// A line of words with single blanks between them, read as a command with all shared options.
struct Line {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style;
    LibraryOptions library;

    explicit Line(const std::string& words, Canvas canvas = Canvas::Picture) {
        CLI::App command;
        addModelOptions(command, model);
        addViewOptions(command, view);
        addStyleOptions(command, style, library, canvas);
        addPhotoOptions(command, style.photo, library);
        command.parse(words);
    }
};

TEST(Options, ReadModelViewAndStyle) {
    const Line line(
        "house.ifc --mode edges --camera -1,-2,3.5,4,5,6 --camera-up 0,1,0 --fov 55 "
        "--hide IfcSite* --hide *Dach* --only Ifc* --unit cm --up z --all --both-sides "
        "--hidden-edges --round-ends --line-weight 12 --edge-opacity 40 --background 102030 "
        "--zoom-window -0.1,0.2,0.5,0.25 --samples 4 --photo-samples 2 --fxaa --no-shadows "
        "--surfaces grey --view plan");
    EXPECT_EQ(line.model.model, "house.ifc");
    EXPECT_EQ(line.model.hide, (std::vector<std::string>{"IfcSite*", "*Dach*"}));
    EXPECT_EQ(line.model.only, (std::vector<std::string>{"Ifc*"}));
    EXPECT_EQ(line.model.import.lengthUnit, "cm");
    EXPECT_EQ(line.model.import.up, 'z');
    EXPECT_TRUE(line.model.import.keepHelpers && line.model.bothSides);
    EXPECT_EQ(line.view.view, "plan");
    ASSERT_TRUE(line.view.eye && line.view.target && line.view.up && line.view.zoomWindow);
    EXPECT_EQ(line.view.eye->x, -1.0);
    EXPECT_EQ(line.view.eye->z, 3.5);
    EXPECT_EQ(line.view.target->z, 6.0);
    EXPECT_EQ(line.view.up->y, 1.0);
    EXPECT_EQ(line.view.fieldOfViewDegrees, 55.0);
    EXPECT_EQ(line.view.zoomWindow->centerX, -0.1);
    EXPECT_EQ(line.view.zoomWindow->height, 0.25);
    EXPECT_EQ(line.style.mode, ogl::kRenderModeEdges);
    EXPECT_TRUE(line.style.hiddenEdges && line.style.roundEnds && !line.style.shadows);
    EXPECT_EQ(line.style.surfaces, SurfaceLook::Grey);
    EXPECT_EQ(line.style.lineWeight, 12);
    EXPECT_EQ(line.style.edgeOpacityPercent, 40);
    ASSERT_TRUE(line.style.background.has_value());
    EXPECT_EQ(line.style.background->green, 0x20);
    EXPECT_EQ(line.library.samples, 4);
    EXPECT_EQ(line.library.photoSamples, 2);
    EXPECT_TRUE(line.library.fxaa && !line.library.rayTracing);
    EXPECT_TRUE(Line("flat --mode raytrace").library.rayTracing);
}

TEST(Options, RefuseInOneLine) {
    const char* const lines[] = {
        "",
        "flat more",
        "flat --no-such-option",
        "flat --unit miles",
        "flat --up x",
        "flat --mode rays",
        "flat --mode raytrace --ini space.ini",
        "flat --sun 10",
        "flat --sun 10,91",
        "flat --surfaces pink",
        "flat --exposure -1",
        "flat --occlusion 351",
        "flat --sketch 101",
        "flat --interior maybe",
        "flat --photo-samples 17",
        "flat --samples 0",
        "flat --date 2025-06-21",
        "flat --north 20",
        "flat --time 12:00 --lat 0 --lon 0",
        "flat --sun 10,20 --date 2025-06-21 --time 12:00 --lat 0 --lon 0",
        "flat --date 2025-02-29 --time 12:00 --lat 50 --lon 10",
        "flat --date 2025-02-28 --time 24:00 --lat 50 --lon 10",
        "flat --date 2025-02-28 --time 12 --lat 50 --lon 10",
        "flat --date 2025-02-28 --time 12:00 --lat 91 --lon 10",
        "flat --date 2025-02-28 --time 12:00 --lat 50 --lon 190",
        "flat --fov 0",
        "flat --eye 1,2",
        "flat --camera 1,2,3,4,5,6 --eye 1,2,3",
        "flat --camera-up 0,0,0",
        "flat --zoom-window 0,0,0,1",
        "flat --edge-opacity 101",
        "flat --line-weight -1",
        "flat --background white",
    };
    const auto expectRefusal = [](const char* words, Canvas canvas) {
        try {
            const Line line(words, canvas);
            ADD_FAILURE() << "accepted: " << words;
        } catch (const UserError& error) {
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << words;
            EXPECT_STRNE(error.what(), "") << words;
        } catch (const CLI::ParseError&) { // whose first line is shown
        }
    };
    for (const char* words : lines)
        expectRefusal(words, Canvas::Picture);
    for (const char* words : {"flat --mode file", "flat --mode raytrace"})
        expectRefusal(words, Canvas::Window);
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
    const ogl::SCENE& apply(const std::string& options) {
        applyStyle(builder_, Line("flat " + options).style);
        return *builder_.scene();
    }

    ogl::host::SceneBuilder builder_;
};

TEST_F(Style, PhotoOptionsReachTheRecord) {
    const ogl::SCENE& scene = apply(
        "--mode photo --exposure 1.5 --gamma 0.8 --saturation 1.25 --ambient 70 --occlusion 120 "
        "--sketch 35 --mono --interior yes --date 2026-03-20 --time 13:45 --lat 52.5 --lon 13.25 "
        "--north 60");
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
    const ogl::SCENE& scene = apply("--mode photo --sun 90,10");
    EXPECT_EQ(scene.lightFlags & 0x5c0000u, 0u);
    EXPECT_EQ(scene.sunElevationAngle, -10);                               // its light falls
    EXPECT_EQ((static_cast<int>(scene.sunAzimuthAngle) + 360) % 360, 270); // and travels to -y
    // A low sun is weaker and redder than a high one.
    const int low = scene.sunIntensity;
    const int lowBlue = scene.sunColor.blue;
    apply("--mode photo --sun 90,60");
    EXPECT_GT(scene.sunIntensity, low);
    EXPECT_GT(scene.sunColor.blue, lowBlue);
}

TEST_F(Style, TakesTheDaysThatTheRecordCanHold) {
    const auto applyDate = [this](const std::string& date) -> const ogl::SCENE& {
        return apply("--mode photo --time 12:00 --lat 0 --lon 0 --date " + date);
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
