// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/picking/triangle_hit.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace ogl {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();

using Triangle = std::array<float, 9>;

/// Triangles at an odd address in a block that ends with them, so that a sanitizer sees a read
/// behind the last.
class Block {
  public:
    explicit Block(const std::vector<Triangle>& triangles)
        : bytes_(triangles.size() * kTriangleBytes + 1) {
        if (!triangles.empty())
            std::memcpy(&bytes_[1], triangles.data(), bytes_.size() - 1);
    }
    const uint8_t* at(int k) const { return bytes_.data() + 1 + k * kTriangleBytes; }

  private:
    std::vector<uint8_t> bytes_;
};

const Ray kDown = {{0.25f, 0.25f, 5.0f}, {0.0f, 0.0f, -1.0f}};
constexpr Triangle kFloor = {0, 0, 0, 1, 0, 0, 0, 1, 0};

Ray downAt(float x, float y, float z = 5.0f) {
    return {{x, y, z}, {0.0f, 0.0f, -1.0f}};
}

TEST(TriangleHit, MeetsAreaEdgesAndCornersInFrontOnly) {
    constexpr Triangle reversed = {0, 0, 0, 0, 1, 0, 1, 0, 0};
    constexpr Triangle line = {0, 0, 0, 1, 1, 0, 2, 2, 0};
    constexpr Triangle beside = {0, 0, 0, kNoNumber, 0, 0, 0, 1, 0};
    const struct {
        const char* name;
        Ray ray;
        Triangle triangle;
        float distance; // 0 = no hit
    } cases[] = {
        {"inside", kDown, kFloor, 5.0f},
        {"inside, other winding", kDown, reversed, 5.0f},
        {"long direction", {{0.25f, 0.25f, 5.0f}, {0.0f, 0.0f, -4.0f}}, kFloor, 1.25f},
        {"on the edge u = 0", downAt(0.0f, 0.5f), kFloor, 5.0f},
        {"on the edge v = 0", downAt(0.5f, 0.0f), kFloor, 5.0f},
        {"on the edge u + v = 1", downAt(0.5f, 0.5f), kFloor, 5.0f},
        {"corner", downAt(0.0f, 0.0f), kFloor, 5.0f},
        {"outside u", downAt(-0.01f, 0.5f), kFloor, 0.0f},
        {"outside v", downAt(0.5f, -0.01f), kFloor, 0.0f},
        {"outside u + v", downAt(0.51f, 0.5f), kFloor, 0.0f},
        {"behind", downAt(0.25f, 0.25f, -5.0f), kFloor, 0.0f},
        {"at the origin", downAt(0.25f, 0.25f, 0.0f), kFloor, 0.0f},
        {"along the plane", {{-1.0f, 0.25f, 0.0f}, {1.0f, 0.0f, 0.0f}}, kFloor, 0.0f},
        {"without area", downAt(1.0f, 1.0f), line, 0.0f},
        {"a corner that is no number", kDown, beside, 0.0f},
        {"a ray that is no number", downAt(kNoNumber, 0.25f), kFloor, 0.0f},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Block block({c.triangle});
        float distance = 0.0f;
        EXPECT_EQ(hitTriangle(c.ray, block.at(0), distance), c.distance > 0.0f);
        EXPECT_EQ(distance, c.distance);
    }
}

/// Coordinates that meet edges, corners and planes exactly, and some that overflow.
float coordinate(std::mt19937& random) {
    constexpr float special[] = {0.0f,   -0.0f, 1e-20f, 1e-38f,    -3e-45f,  1e19f,
                                 -1e25f, 3e38f, -3e38f, kInfinity, kNoNumber};
    const unsigned kind = random() % 64;
    if (kind < std::size(special))
        return special[kind];
    if (kind < 40)
        return static_cast<float>(static_cast<int>(random() % 9) - 4) * 0.5f;
    return std::uniform_real_distribution<float>(-2.0f, 2.0f)(random);
}

Vec3 point(std::mt19937& random) {
    const float x = coordinate(random);
    const float y = coordinate(random);
    return {x, y, coordinate(random)};
}

std::vector<int> plainHits(const Ray& ray, const Block& block, int count) {
    std::vector<int> hits;
    float distance = 0.0f;
    for (int k = 0; k < count; ++k)
        if (hitTriangle(ray, block.at(k), distance))
            hits.push_back(k);
    return hits;
}

/// What a search finds, and how many triangles it did not rule out.
std::vector<int> searchedHits(CandidateSearch search, const Ray& ray, const Block& block, int count,
                              int& candidates) {
    std::vector<int> hits;
    float distance = 0.0f;
    for (int k = 0; (k = search(ray, block.at(0), k, count)) < count; ++k) {
        ++candidates;
        if (hitTriangle(ray, block.at(k), distance))
            hits.push_back(k);
    }
    return hits;
}

class TriangleSearch : public testing::TestWithParam<CandidateSearch> {
  protected:
    void SetUp() override {
        if (GetParam() == nextCandidateAvx2 && !hasAvx2())
            GTEST_SKIP() << "this processor has no AVX2";
    }
};

TEST_P(TriangleSearch, FindsWhatTheFormulaFinds) {
    std::mt19937 random(20);
    int hits = 0;
    for (int round = 0; round < 4000; ++round) {
        std::vector<Triangle> triangles(random() % 40);
        for (Triangle& triangle : triangles)
            for (float& value : triangle)
                value = coordinate(random);
        const Ray ray = {point(random), point(random)};
        const Block block(triangles);
        const int count = static_cast<int>(triangles.size());
        int candidates = 0;
        const std::vector<int> expected = plainHits(ray, block, count);
        ASSERT_EQ(searchedHits(GetParam(), ray, block, count, candidates), expected) << round;
        hits += static_cast<int>(expected.size());
    }
    EXPECT_GT(hits, 1000);
}

TEST_P(TriangleSearch, RulesMostMissesOut) {
    std::mt19937 random(4);
    std::uniform_real_distribution<float> anywhere(-2.0f, 2.0f);
    std::vector<Triangle> triangles(4003);
    for (Triangle& triangle : triangles)
        for (float& value : triangle)
            value = anywhere(random);
    const Block block(triangles);
    const Ray ray = {{0.1f, 0.2f, -9.0f}, {0.02f, -0.01f, 1.0f}};
    int candidates = 0;
    const std::vector<int> hits = searchedHits(GetParam(), ray, block, 4003, candidates);
    EXPECT_GT(hits.size(), 100u);
    EXPECT_EQ(static_cast<size_t>(candidates), hits.size());
}

INSTANTIATE_TEST_SUITE_P(EveryWidth, TriangleSearch,
                         testing::Values(nextCandidateSse2, nextCandidateAvx2),
                         [](const auto& search) {
                             return search.param == nextCandidateSse2 ? "Sse2" : "Avx2";
                         });

} // namespace
} // namespace ogl
