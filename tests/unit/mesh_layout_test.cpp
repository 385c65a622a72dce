// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/mesh_layout.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

/// The places of all batches, object by object, as {buffers, first}.
std::vector<std::pair<int, int>> placesOf(const MeshLayout& layout) {
    std::vector<std::pair<int, int>> places;
    for (size_t i = 0; i < layout.objectCount(); ++i)
        for (const MeshPlace& place : layout.object(i).places)
            places.emplace_back(place.buffers, place.first);
    return places;
}

TEST(MeshLayout, PutsAMaterialsBatchesSideBySideInTheOrderOfTheObjects) {
    MeshLayout layout;
    layout.add(2, std::vector<BatchSize>{{0, 3}, {5, 6}});
    layout.add(4, std::vector<BatchSize>{{0, 9}});
    layout.add(9, std::vector<BatchSize>{{0, 30}, {3, 12}, {5, 60}});
    layout.place(6);
    EXPECT_EQ(placesOf(layout), (std::vector<std::pair<int, int>>{
                                    {0, 0}, {0, 54}, {0, 3}, {0, 12}, {0, 42}, {0, 60}}));
    EXPECT_EQ(layout.bufferSize(0), 120);
    EXPECT_EQ(layout.object(2).object, 9);
}

TEST(MeshLayout, StartsNewBuffersForWhatDoesNotFit) {
    constexpr int kMost = kMostSharedVertices;
    MeshLayout layout;
    layout.add(0, std::vector<BatchSize>{{1, kMost - 3}});
    layout.add(1, std::vector<BatchSize>{{0, 3}, {2, 3 * kMost}});
    layout.add(2, std::vector<BatchSize>{{0, 3}, {1, 6}});
    layout.add(3, std::vector<BatchSize>{{0, 9}});
    layout.place(3);
    EXPECT_EQ(placesOf(layout),
              (std::vector<std::pair<int, int>>{{0, 3}, {0, 0}, {1, 0}, {2, 0}, {2, 12}, {2, 3}}));
    EXPECT_EQ(layout.bufferSize(0), kMost);
    EXPECT_EQ(layout.bufferSize(1), 3 * kMost);
    EXPECT_EQ(layout.bufferSize(2), 18);
}

} // namespace
} // namespace ogl
