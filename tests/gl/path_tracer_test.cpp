// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The kernel and the accumulation, run for real: what rays find in the packed scene is what rays
// find in its plain list of triangles.
#include "raytrace/path_tracer.h"

#include "gl/gl_fixture.h"
#include "gl/ray_reference.h"
#include "platform/own_window.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace ogl::test {
namespace {

constexpr float kFar = 1000000.0f;
constexpr int kSide = 64;

/// Rays through the pixels' centres, and directions along the normal alone: nothing nearby darkens.
RaySample straight() {
    return {0.0f, 0.0f, {{{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}}}};
}

struct Comparison {
    int pixels = 0;
    int different = 0;
    double difference = 0; ///< sum over all pixels and channels
};

class PathTracerTest : public GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        scene_->scene().renderMode = kRenderModePhoto;
    }
    /// A renderer that has drawn a frame of this size.
    RayTraceRenderer& drawn(int width = kSide, int height = kSide) {
        scene_->commit();
        resizeOwnWindow(width, height);
        auto& renderer = select<RayTraceRenderer>();
        renderer.setSize(width, height);
        renderer.setupCamera(scene_->scene());
        renderer.drawToWindow(context_->primary);
        return renderer;
    }
    int16_t paint(Vec3 color, float opacity = 1.0f, float reflection = 0.0f) {
        return reference_.addPaint(*scene_, {color, opacity, reflection});
    }
    void add(const FaceShape& face) { reference_.addObject(*scene_, face); }
    ReferenceHit hitAt(const RayTraceRenderer& r, float x, float y, const RaySample& sample) const {
        const Vec3 direction = rayThrough(r.rayCamera(), x, y, r.width, r.height, sample);
        return reference_.firstHit(r.rayCamera().position + direction * 0.1f, direction, kFar);
    }
    /// True when the pixel and what lies around it show one thing.
    bool isInside(const RayTraceRenderer& r, int x, int y, const RaySample& sample) const;
    /// True when all directions above the pixel's surface are closed.
    bool isDark(const RayTraceRenderer& r, int x, int y) const {
        const Vec3 direction =
            rayThrough(r.rayCamera(), static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f,
                       r.width, r.height, straight());
        const Vec3 color = reference_.pathColor(r.rayCamera().position + direction * 0.1f,
                                                direction, x, y, straight());
        return color.x + color.y + color.z == 0.0f;
    }
    /// Compares a sample with the reference's paths on pixels that are inside.
    Comparison compare(const RayTraceRenderer& r, const RaySample& sample,
                       const std::vector<float>& pixels) const;

    ReferenceScene reference_;
};

bool PathTracerTest::isInside(const RayTraceRenderer& r, int x, int y,
                              const RaySample& sample) const {
    const auto thing = [&](float dx, float dy) {
        const ReferenceHit hit =
            hitAt(r, static_cast<float>(x) + dx, static_cast<float>(y) + dy, sample);
        return hit.triangle < 0 ? -1 : reference_.paintOf(hit);
    };
    const int center = thing(0.5f, 0.5f);
    for (const float dx : {0.0f, 1.0f})
        for (const float dy : {0.0f, 1.0f})
            if (thing(dx, dy) != center)
                return false;
    return true;
}

const float* pixelOf(const std::vector<float>& pixels, int width, int x, int y) {
    return &pixels[4 * static_cast<size_t>(y * width + x)];
}

Comparison PathTracerTest::compare(const RayTraceRenderer& r, const RaySample& sample,
                                   const std::vector<float>& pixels) const {
    Comparison result;
    for (int y = 0; y < r.height; ++y)
        for (int x = 0; x < r.width; ++x) {
            if (!isInside(r, x, y, sample))
                continue;
            const Vec3 direction =
                rayThrough(r.rayCamera(), static_cast<float>(x) + 0.5f,
                           static_cast<float>(y) + 0.5f, r.width, r.height, sample);
            const Vec3 expected = reference_.pathColor(r.rayCamera().position + direction * 0.1f,
                                                       direction, x, y, sample);
            const float* actual = pixelOf(pixels, r.width, x, y);
            const float off =
                std::max({std::abs(actual[0] - expected.x), std::abs(actual[1] - expected.y),
                          std::abs(actual[2] - expected.z)});
            ++result.pixels;
            result.different += off > 0.002f ? 1 : 0;
            result.difference += static_cast<double>(actual[0] - expected.x) +
                                 static_cast<double>(actual[1] - expected.y) +
                                 static_cast<double>(actual[2] - expected.z);
        }
    return result;
}

// Many objects of many triangles in many cells, from several sides and through a zoom window. Each
// has a colour of its own, so that the picture tells what each ray met.
TEST_F(PathTracerTest, RaysMeetTheTrianglesThatTheyShould) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> place(-12.0f, 12.0f);
    for (int k = 0; k < 24; ++k) {
        const int16_t color = paint({0.04f * static_cast<float>(k % 24 + 1), k % 2 ? 0.2f : 0.8f,
                                     1.0f - 0.04f * static_cast<float>(k)});
        const Vec3 center{place(random), place(random), 0.5f * place(random)};
        if (k % 3 == 0)
            add(block(center, center + Vec3{3.0f, 1.0f + 0.2f * static_cast<float>(k), 2.0f},
                      color));
        else
            add(ball(center, 1.0f + 0.1f * static_cast<float>(k), 4 + k % 7, color));
    }
    add(plate(-40, -40, 40, 40, -15, paint({0.5f, 0.5f, 0.5f})));
    const struct Row {
        const char* name;
        Vec3 eye;
        Vec3 target;
        int windowCenterX, windowCenterY, windowSize;
        int width, height;
    } rows[] = {
        {"from above", {0, 0, 40}, {0, 0, 0}, 0, 0, 0, 64, 64},
        {"from the side", {30, -14, 6}, {0, 0, 0}, 0, 0, 0, 64, 40},
        {"from within", {1, 2, 3}, {4, -7, 2}, 0, 0, 0, 40, 64},
        {"zoom window", {0, -40, 10}, {0, 0, 0}, 5000, -2500, 9000, 64, 48},
        {"along an axis", {0, 40, 0}, {0, 0, 0}, 0, 0, 0, 64, 64},
    };
    for (const Row& row : rows) {
        scene_->look(row.eye, row.target, 1.0);
        SCENE& scene = scene_->scene();
        scene.viewWindowCenterX = row.windowCenterX;
        scene.viewWindowCenterY = row.windowCenterY;
        scene.viewWindowWidth = row.windowSize;
        scene.viewWindowHeight = row.windowSize;
        RayTraceRenderer& renderer = drawn(row.width, row.height);
        EXPECT_GT(renderer.packed().gridCells.size(), 200u);
        PathTracer tracer(renderer);
        ASSERT_TRUE(tracer.isReady());
        tracer.trace(straight());
        const std::vector<float> pixels = tracer.readSample();
        int compared = 0;
        int seen = 0;
        for (int y = 0; y < row.height; ++y)
            for (int x = 0; x < row.width; ++x) {
                if (!isInside(renderer, x, y, straight()))
                    continue;
                const ReferenceHit hit = hitAt(renderer, static_cast<float>(x) + 0.5f,
                                               static_cast<float>(y) + 0.5f, straight());
                Vec3 expected{0, 0, 0};
                if (hit.triangle >= 0)
                    expected =
                        reference_.paints()[static_cast<size_t>(reference_.paintOf(hit))].color;
                const float* actual = pixelOf(pixels, row.width, x, y);
                // Neighbouring objects may be near enough to darken; colours keep their ratios.
                const float sum = actual[0] + actual[1] + actual[2];
                if (sum == 0.0f && isDark(renderer, x, y))
                    continue;
                const float scale =
                    sum > 0.0f ? (expected.x + expected.y + expected.z) / sum : 1.0f;
                EXPECT_NEAR(actual[0] * scale, expected.x, 0.004f)
                    << row.name << " " << x << ", " << y;
                EXPECT_NEAR(actual[1] * scale, expected.y, 0.004f)
                    << row.name << " " << x << ", " << y;
                ++compared;
                seen += hit.triangle >= 0 ? 1 : 0;
            }
        EXPECT_GT(compared, row.width * row.height / 3) << row.name;
        EXPECT_GT(seen, row.width * row.height / 4) << row.name;
    }
}

// The preview is drawn with the view's camera, the rays with their own.
TEST_F(PathTracerTest, RaysSeeWhatThePreviewShows) {
    add(block({-3, -2, 0}, {1, 2, 3}, paint({1, 1, 1})));
    add(ball({4, 1, 2}, 2.0f, 8, paint({1, 1, 1})));
    scene_->look({5, -12, 6}, {0.5f, 0, 1.5f}, 0.7);
    SCENE& scene = scene_->scene();
    const struct Row {
        int x, y, width, height; ///< zoom window
    } rows[] = {{0, 0, 0, 0}, {4000, 3000, 20000, 20000}, {-3000, 2000, 24000, 12000}};
    for (const Row& row : rows) {
        scene.viewWindowCenterX = row.x;
        scene.viewWindowCenterY = row.y;
        scene.viewWindowWidth = row.width;
        scene.viewWindowHeight = row.height;
        RayTraceRenderer& renderer = drawn(64, 48);
        const Picture preview = Picture::read(64, 48);
        PathTracer tracer(renderer);
        tracer.trace(straight());
        const std::vector<float> pixels = tracer.readSample();
        int covered = 0;
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x) {
                const int grey = preview.at(x, y).red;
                if (grey != 0 && grey < 126)
                    continue; // an edge
                const bool met = pixelOf(pixels, 64, x, y)[0] > 0.0f;
                EXPECT_EQ(met, grey != 0) << row.width << ": " << x << ", " << y;
                covered += met ? 1 : 0;
            }
        EXPECT_GT(covered, 300);
        EXPECT_LT(covered, 64 * 48 - 300);
    }
}

TEST_F(PathTracerTest, NearbySurfacesDarken) {
    add(plate(-5, -5, 5, 5, 0, paint({0.8f, 0.8f, 0.8f})));
    add(block({-1, -1, 0}, {0.5f, 2, 1.5f}, paint({0.9f, 0.5f, 0.2f})));
    add(ball({2, -1, 0.7f}, 0.7f, 9, paint({0.3f, 0.6f, 0.9f})));
    add(quad({2, 4, 0}, {2, 4, 3}, {-4, 4, 3}, {-4, 4, 0}, paint({0.5f, 0.9f, 0.5f})));
    scene_->look({1.5f, -5, 4}, {0.2f, 0.5f, 0.3f}, 0.9);
    RayTraceRenderer& renderer = drawn();
    PathTracer tracer(renderer);
    RaySampler sampler(4);
    const RaySample sample = sampler.next(kSide, kSide);
    tracer.trace(sample);
    const Comparison result = compare(renderer, sample, tracer.readSample());
    EXPECT_GT(result.pixels, 2500);
    EXPECT_LT(result.different, result.pixels / 100); // rays that graze an edge
    EXPECT_NEAR(result.difference / result.pixels, 0.0, 0.002);
}

// A mirror shows a red plate behind the camera; glass shows a blue one behind it.
TEST_F(PathTracerTest, MirrorsAndGlassCarryPathsOn) {
    const int16_t mirror = paint({1, 1, 1}, 1.0f, 1.0f);
    const int16_t glass = paint({0.4f, 0.8f, 0.4f}, 0.25f, 0.0f);
    const int16_t red = paint({1.0f, 0.2f, 0.0f});
    const int16_t blue = paint({0.0f, 0.2f, 1.0f});
    add(quad({-6, 10, -4}, {-6, 10, 4}, {0, 10, 4}, {0, 10, -4}, mirror)); // the left half
    add(quad({0, 10, -4}, {0, 10, 4}, {6, 10, 4}, {6, 10, -4}, glass));    // the right half
    add(quad({-20, -6, -9}, {-20, -6, 9}, {0, -6, 9}, {0, -6, -9}, red));  // behind the camera
    add(quad({0, 14, -9}, {0, 14, 9}, {20, 14, 9}, {20, 14, -9}, blue));   // behind the glass
    scene_->look({0, 0, 0}, {0, 10, 0}, 0.6);
    RayTraceRenderer& renderer = drawn(48, 48);
    PathTracer tracer(renderer);
    RaySampler sampler(2);
    const RaySample first = sampler.next(48, 48);
    tracer.trace(first);
    const Comparison single = compare(renderer, first, tracer.readSample());
    EXPECT_GT(single.pixels, 2000);
    EXPECT_LT(single.different, single.pixels / 100);
}

// Through more panes of glass than a path takes.
TEST_F(PathTracerTest, PathsEndAfterFiveSurfaces) {
    const int16_t pane = paint({0.4f, 0.4f, 0.4f}, 0.5f, 0.0f);
    for (int k = 0; k < 8; ++k)
        add(plate(-9, -9, 9, 9, -2.0f * static_cast<float>(k), pane));
    RayTraceRenderer& renderer = drawn(16, 16);
    PathTracer tracer(renderer);
    tracer.trace(straight());
    const std::vector<float> pixels = tracer.readSample();
    const Comparison result = compare(renderer, straight(), pixels);
    EXPECT_GT(result.pixels, 100);
    EXPECT_EQ(result.different, 0);
    int ended = 0, passed = 0;
    for (int y = 4; y < 12; ++y)
        for (int x = 4; x < 12; ++x) {
            const float value = pixelOf(pixels, 16, x, y)[0];
            ended += std::abs(value - 0.2f) < 0.001f ? 1 : 0;
            passed += std::abs(value - 5 * 0.2f) < 0.001f ? 1 : 0; // throughput stays 1
        }
    EXPECT_EQ(ended + passed, 64);
    EXPECT_GT(ended, 10);
    EXPECT_GT(passed, 10);
}

TEST_F(PathTracerTest, AlphaTellsWhatIsBesideTheScene) {
    add(plate(-2, -2, 2, 2, 0, paint({1, 1, 1})));
    add(plate(4, 4, 5, 5, 0, paint({1, 1, 1})));
    RayTraceRenderer& renderer = drawn(20, 20); // a pixel is one unit wide
    PathTracer tracer(renderer);
    tracer.trace(straight());
    const std::vector<float> pixels = tracer.readSample();
    EXPECT_EQ(pixelOf(pixels, 20, 10, 10)[3], 1.0f); // a surface
    EXPECT_EQ(pixelOf(pixels, 20, 13, 10)[3], 1.0f); // in the scene's box
    EXPECT_EQ(pixelOf(pixels, 20, 13, 10)[0], 0.0f);
    EXPECT_EQ(pixelOf(pixels, 20, 17, 10)[3], -1.0f);
    EXPECT_EQ(pixelOf(pixels, 20, 2, 2)[3], -1.0f);
}

TEST_F(PathTracerTest, TheMeanIsThatOfTheSamples) {
    add(plate(-6, -6, 6, 6, 0, paint({0.25f, 0.5f, 1.0f})));
    add(block({-2, -2, 0}, {2, 2, 1}, paint({1.0f, 0.5f, 0.25f})));
    RayTraceRenderer& renderer = drawn(32, 32);
    PathTracer tracer(renderer);
    RaySampler sampler(1);
    std::vector<double> sum(32 * 32 * 4, 0.0);
    for (int k = 1; k <= 5; ++k) {
        double part = 0;
        int bands = 0;
        tracer.trace(sampler.next(32, 32), [&](double done) {
            EXPECT_GT(done, part);
            part = done;
            ++bands;
        });
        EXPECT_EQ(part, 1.0);
        EXPECT_EQ(bands, 1);
        EXPECT_EQ(tracer.sampleCount(), k);
        const std::vector<float> sample = tracer.readSample();
        const std::vector<float> shown = tracer.readShown(); // changes nothing
        const std::vector<float> mean = tracer.readMean();
        for (size_t i = 0; i < sum.size(); ++i) {
            sum[i] += static_cast<double>(sample[i]);
            const double expected = i % 4 == 3 ? 1.0 : sum[i] / k;
            ASSERT_NEAR(mean[i], expected, 1e-5) << i;
            ASSERT_NEAR(shown[i], i % 4 == 3 ? 1.0 : std::pow(expected, 0.6), 1e-4) << i;
        }
    }
    // A new tracer starts anew.
    PathTracer again(renderer);
    again.trace(straight());
    EXPECT_EQ(again.sampleCount(), 1);
    EXPECT_NEAR(again.readMean()[4 * (16 * 32 + 16)], 1.0f, 1e-5f);
}

TEST_F(PathTracerTest, AnEmptySceneIsBlack) {
    scene_->addObject();
    RayTraceRenderer& renderer = drawn(8, 8);
    PathTracer tracer(renderer);
    ASSERT_TRUE(tracer.isReady());
    tracer.trace(straight());
    const std::vector<float> pixels = tracer.readSample();
    ASSERT_EQ(pixels.size(), 4u * 64u);
    for (size_t i = 0; i < pixels.size(); ++i)
        EXPECT_EQ(pixels[i], i % 4 == 3 ? 1.0f : 0.0f);
}

TEST_F(PathTracerTest, SamplesFollowTheCosine) {
    RaySampler sampler(7);
    RaySampler same(7);
    double height = 0, shift = 0;
    constexpr int kSamples = 4000;
    for (int k = 0; k < kSamples; ++k) {
        const RaySample sample = sampler.next(100, 50);
        const RaySample twin = same.next(100, 50);
        EXPECT_EQ(sample.shiftX, twin.shiftX);
        EXPECT_LE(std::abs(sample.shiftX), 0.005f);
        EXPECT_LE(std::abs(sample.shiftY), 0.01f);
        shift += static_cast<double>(sample.shiftX);
        for (size_t i = 0; i < 4; ++i) {
            const Vec3 d = sample.openDirections[i];
            EXPECT_NEAR(length(d), 1.0f, 1e-5f);
            const double turn = std::atan2(static_cast<double>(d.y), static_cast<double>(d.x));
            const double quarter = std::fmod(turn + 6.283185307179586, 6.283185307179586);
            EXPECT_NEAR(quarter, 1.5707963 * (static_cast<double>(i) + 0.5), 0.7854 + 1e-3);
            height += static_cast<double>(d.z);
        }
    }
    EXPECT_NEAR(height / (4 * kSamples), 2.0 / 3.0, 0.01); // the mean cosine of such directions
    EXPECT_NEAR(shift / kSamples, 0.0, 0.0003);
}

} // namespace
} // namespace ogl::test
