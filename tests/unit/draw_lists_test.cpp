// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/draw_lists.h"

#include "support/scene_fixture.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

using test::SceneFixture;

/// Parks a list with one batch for each of the materials.
void park(SceneFixture& fixture, int object, std::initializer_list<int> materials) {
    MeshBatchList* list = makeMeshBatchList();
    ASSERT_NE(list, nullptr);
    for (const int material : materials) {
        list->batches.push_back(std::make_unique<MeshVertexArray>());
        list->batches.back()->material = material;
    }
    fixture.entry(object).meshBatches = list;
}

std::vector<int> objectsOf(const DrawLists& lists, int material) {
    std::vector<int> objects;
    for (const MeshDraw& draw : lists.of(material))
        objects.push_back(draw.object);
    return objects;
}

TEST(DrawLists, GroupsBatchesByMaterialInCacheOrder) {
    SceneFixture fixture;
    for (int k = 0; k < 4; ++k)
        fixture.addObject();
    fixture.commit();
    park(fixture, 0, {0, 2});
    park(fixture, 1, {2, 9}); // no such material
    park(fixture, 3, {0, 1, 2});
    DrawLists lists;
    lists.collect(fixture.view(), 3);
    EXPECT_EQ(objectsOf(lists, 0), (std::vector<int>{0, 3}));
    EXPECT_EQ(objectsOf(lists, 1), (std::vector<int>{3}));
    EXPECT_EQ(objectsOf(lists, 2), (std::vector<int>{0, 1, 3}));
    EXPECT_TRUE(lists.of(3).empty());
    EXPECT_TRUE(lists.of(-1).empty());
}

TEST(DrawLists, FollowsWhatTheHostHidesOrDrops) {
    SceneFixture fixture;
    fixture.addObject();
    fixture.addObject();
    fixture.commit();
    park(fixture, 0, {0});
    park(fixture, 1, {0});
    DrawLists lists;
    lists.collect(fixture.view(), 1);
    const MeshDraw first = lists.of(0)[0];
    const MeshDraw second = lists.of(0)[1];
    const auto drawn = [&](const MeshDraw& draw) {
        return isStillDrawn(draw, SceneLists(fixture.scene()), &fixture.view());
    };
    EXPECT_TRUE(drawn(first));
    static_cast<OBJECT*>(fixture.objects().data.get())[0].flags = 0x2000;
    EXPECT_FALSE(drawn(first));
    EXPECT_TRUE(drawn(second));
    releaseMeshBatches(fixture.entry(1).meshBatches);
    EXPECT_FALSE(drawn(second));
    EXPECT_FALSE(isStillDrawn(second, SceneLists(fixture.scene()), nullptr));
}

} // namespace
} // namespace ogl
