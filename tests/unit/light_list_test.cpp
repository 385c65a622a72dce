// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/light_list.h"

#include "support/scene_fixture.h"

#include <gtest/gtest.h>
#include <limits>

namespace ogl {
namespace {

constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();

LIGHT lamp(uint8_t kind, VEC3F position, VEC3F target, float cone, float attenuation = 0.0f) {
    LIGHT record{};
    record.kind = kind;
    record.position = position;
    record.target = target;
    record.coneAngle = cone;
    record.attenuation = attenuation;
    record.color = {1.0f, 0.5f, 0.25f};
    return record;
}

class LightListTest : public testing::Test {
  protected:
    /// The lights of a scene whose records are two that are skipped, and these.
    LightList lightsFrom(const std::vector<LIGHT>& records) {
        scene_.addLight(lamp(1, {}, {}, 0));
        scene_.addLight(lamp(2, {}, {0, 0, -1}, 45));
        for (const LIGHT& record : records)
            scene_.addLight(record);
        scene_.commit();
        return lightsOf(scene_.scene(), {});
    }

    test::SceneFixture scene_;
};

TEST_F(LightListTest, RecordsThatDescribeNoLightAreLeftOut) {
    const struct {
        const char* name;
        LIGHT record;
        size_t lights;
    } rows[] = {
        {"a spot", lamp(2, {}, {0, 0, -1}, 89.9f), 1},
        {"unknown kind", lamp(3, {}, {0, 0, -1}, 45), 0},
        {"kind 0", lamp(0, {}, {0, 0, -1}, 45), 0},
        {"no place", lamp(1, {kNoNumber, 0, 0}, {}, 0), 0},
        {"target at its place", lamp(2, {1, 1, 1}, {1, 1, 1}, 45), 0},
        {"target nowhere", lamp(2, {}, {0, kNoNumber, 0}, 45), 0},
        {"no cone", lamp(2, {}, {0, 0, -1}, 0), 0},
        {"half a sphere", lamp(2, {}, {0, 0, -1}, 90), 0},
        {"cone that is no number", lamp(2, {}, {0, 0, -1}, kNoNumber), 0},
    };
    for (const auto& row : rows) {
        LIGHT dark = row.record;
        dark.color = {0, std::numeric_limits<float>::infinity(), 0};
        test::SceneFixture scene;
        for (const LIGHT& record : {LIGHT{}, LIGHT{}, row.record, dark})
            scene.addLight(record);
        scene.commit();
        EXPECT_EQ(lightsOf(scene.scene(), {}).size(), row.lights) << row.name;
    }
}

TEST_F(LightListTest, OnlySoManySpotsThrowShadows) {
    std::vector<LIGHT> records(kMostSpotShadows + 2, lamp(2, {}, {0, 0, -1}, 45));
    records[0].kind = 1;
    const LightList lights = lightsFrom(records);
    for (size_t i = 0; i < records.size(); ++i)
        EXPECT_EQ(lights[i]->castsShadow, i == 0 || i > kMostSpotShadows ? 0 : 1) << i;
}

TEST_F(LightListTest, PortalsFollowTheLamps) {
    const PortalRecord portal{0, 2, {1, 2, 3}, {0, 1, 0}, {2, 0, 0}, {0, 0, 1}};
    scene_.addLight({});
    scene_.addLight({});
    scene_.addLight(lamp(1, {}, {}, 0));
    scene_.commit();
    const LightList lights = lightsOf(scene_.scene(), {&portal, 1});
    ASSERT_EQ(lights.size(), 2u);
    ASSERT_EQ(lights[1]->kind, LightKind::Portal);
    EXPECT_FLOAT_EQ(lights[1]->position().y, 2.0f);
    EXPECT_FLOAT_EQ(lights[1]->direction().y, -1.0f);
    EXPECT_EQ(lights[1]->castsShadow, 0);
    EXPECT_FLOAT_EQ(static_cast<const PortalLight&>(*lights[1]).halfV.z, 1.0f);
}

} // namespace
} // namespace ogl
