// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "abi/library.h"
#include "abi/wall_scene.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

TEST(Pick, AHostMayLeaveOutEitherResultAndTheScene) {
    const WallScene scene;
    const auto pick = library().pickedObjects;
    int count = -1;
    EXPECT_EQ(pick(scene.record(), 640, 480, 320, 240, nullptr, &count), 1);
    EXPECT_EQ(count, 1);
    for (SCENE* record : {scene.record(), static_cast<SCENE*>(nullptr)}) {
        int* block = nullptr;
        EXPECT_EQ(pick(record, 640, 480, 320, 240, &block, nullptr), 1);
        EXPECT_NE(block, nullptr);
        GlobalFree(block);
    }
    EXPECT_EQ(pick(nullptr, 640, 480, 320, 240, nullptr, &count), 1);
    EXPECT_EQ(count, 0);
}

} // namespace
} // namespace ogl::test
