// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Picking through the built library: no view is made, nothing was drawn.
#include "abi/library.h"
#include "abi/wall_scene.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

struct Picked {
    int result = 0;
    int count = -1;
    int* block = nullptr;
    ~Picked() { GlobalFree(block); }
};

void pick(SCENE* scene, int x, int y, Picked& picked) {
    picked.result = library().pickedObjects(scene, 640, 480, x, y, &picked.block, &picked.count);
}

TEST(Pick, HandsOverABlockOfNumbers) {
    const WallScene scene;
    Picked hit;
    pick(scene.record(), 320, 240, hit);
    EXPECT_EQ(hit.result, 1);
    ASSERT_EQ(hit.count, 1);
    ASSERT_NE(hit.block, nullptr);
    EXPECT_EQ(hit.block[0], 0);
    EXPECT_GE(GlobalSize(hit.block), 4u);
}

TEST(Pick, AMissHandsOverAnEmptyBlock) {
    const WallScene scene;
    for (SCENE* record : {scene.record(), static_cast<SCENE*>(nullptr)}) {
        Picked miss;
        pick(record, 5, 5, miss);
        EXPECT_EQ(miss.result, 1);
        EXPECT_EQ(miss.count, 0);
        EXPECT_NE(miss.block, nullptr);
    }
}

TEST(Pick, AHostMayLeaveOutEitherResult) {
    const WallScene scene;
    int count = -1;
    EXPECT_EQ(library().pickedObjects(scene.record(), 640, 480, 320, 240, nullptr, &count), 1);
    EXPECT_EQ(count, 1);
    Picked block;
    EXPECT_EQ(library().pickedObjects(scene.record(), 640, 480, 320, 240, &block.block, nullptr),
              1);
    EXPECT_NE(block.block, nullptr);
}

} // namespace
} // namespace ogl::test
