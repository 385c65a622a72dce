// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/scene_sun.h"

#include "render/error_log.h"
#include "support/captured_output.h"
#include "support/scene_fixture.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

class SceneSunTest : public testing::Test {
  protected:
    void SetUp() override {
        SCENE& scene = scene_.scene();
        scene.lightFlags = kLightSunAndPortals | kLightSunPresent;
        scene.sunColor = {255, 128, 0};
        scene.sunIntensity = 150;
        scene.sunAzimuthAngle = 20;
        scene.sunElevationAngle = -40;
        log_.open(folder_.hostFile("log.ini"));
    }
    bool update() { return updateSun(sun_, scene_.scene(), bounds_, log_); }

    test::SceneFixture scene_;
    Box bounds_{{-2, -3, -4}, {2, 3, 4}};
    std::unique_ptr<SunLight> sun_;
    test::TempFolder folder_;
    ErrorLog log_;
};

TEST_F(SceneSunTest, StandsStillInEveryDirection) {
    SCENE& scene = scene_.scene();
    for (int azimuth = 0; azimuth < 360; azimuth += 7)
        for (int elevation = -89; elevation < 0; elevation += 11) {
            scene.sunAzimuthAngle = static_cast<int16_t>(azimuth);
            scene.sunElevationAngle = static_cast<int16_t>(elevation);
            EXPECT_TRUE(update());
            EXPECT_FALSE(update()) << azimuth << ", " << elevation;
        }
}

TEST_F(SceneSunTest, IsOnlyThereWhenItShinesDownwards) {
    const struct {
        const char* name;
        uint32_t flags;
        int elevation, intensity;
        bool there;
    } rows[] = {
        {"up", kLightSunAndPortals | kLightSunPresent, -30, 100, true},
        {"below the horizon", kLightSunAndPortals | kLightSunPresent, 30, 100, false},
        {"at the horizon", kLightSunAndPortals | kLightSunPresent, 0, 100, false},
        {"dark", kLightSunAndPortals | kLightSunPresent, -30, 0, false},
        {"none", kLightSunAndPortals, -30, 100, false},
        {"no daylight", kLightSunPresent, -30, 100, false},
    };
    SCENE& scene = scene_.scene();
    for (const auto& row : rows) {
        scene.lightFlags = kLightSunAndPortals | kLightSunPresent;
        scene.sunElevationAngle = -30;
        scene.sunIntensity = 100;
        update();
        ASSERT_NE(sun_, nullptr) << row.name;
        scene.lightFlags = row.flags;
        scene.sunElevationAngle = static_cast<int16_t>(row.elevation);
        scene.sunIntensity = static_cast<int16_t>(row.intensity);
        update();
        EXPECT_EQ(sun_ != nullptr, row.there) << row.name;
    }
}

TEST_F(SceneSunTest, KeepsItsDirectionWithAnUnusablePlace) {
    SCENE& scene = scene_.scene();
    update();
    const Vec3 before = sun_->direction();
    scene.lightFlags = scene.lightFlags | kLightSunFromDate;
    scene.siteLatitude = 91.0f;
    scene.sunIntensity = 30;
    std::string log;
    {
        const test::CapturedOutput output(1);
        EXPECT_FALSE(update());
        EXPECT_FALSE(update());
        log = test::readFile(folder_.file("log.ini"));
    }
    ASSERT_NE(sun_, nullptr);
    EXPECT_FLOAT_EQ(sun_->direction().x, before.x);
    EXPECT_FLOAT_EQ(sun_->direction().z, before.z);
    EXPECT_NEAR(sun_->color.x, 0.3f, 1e-5f);
    const std::string entry = "No sun for this date and place";
    EXPECT_NE(log.find(entry), std::string::npos) << log;
    EXPECT_EQ(log.find(entry, log.find(entry) + 1), std::string::npos) << log;
}

} // namespace
} // namespace ogl
