// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The kernel and the accumulation, run for real on what the renderer keeps ready: what rays find in
// the packed scene is what rays find in its plain list of triangles.
#include "gl/gl_fixture.h"
#include "gl/ray_reference.h"
#include "gpu/screen_quad.h"
#include "gpu/texture.h"
#include "platform/own_window.h"
#include "raytrace/ray_trace_renderer.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace ogl::test {
namespace {

constexpr float kFar = 1000000.0f;
constexpr int kSide = 64;

void bindRectangle(const ShaderProgram& program, const char* sampler, int unit, unsigned texture) {
    bindTexture(unit, TextureKind::Rectangle, texture, GL_NEAREST, 1.0f);
    program.setInt(sampler, unit);
}

void bindScene(const ShaderProgram& program, const SceneTextures& textures) {
    bindRectangle(program, "vertsTex", 0, textures.vertsTex.name());
    bindRectangle(program, "normalsTex", 1, textures.normalsTex.name());
    bindRectangle(program, "uvsTex", 2, textures.uvsTex.name());
    bindRectangle(program, "materialsTex", 3, textures.materialsTex.name());
    bindRectangle(program, "boundsTex", 4, textures.boundsTex.name());
    bindRectangle(program, "gridsTex", 5, textures.gridsTex.name());
    program.setInt("vertTexRes", textures.sides.vertTexRes);
    program.setInt("materialsTexRes", textures.sides.materialsTexRes);
    program.setInt("boundsTexRes", textures.sides.boundsTexRes);
    program.setInt("gridsTexRes", textures.sides.gridsTexRes);
}

void setKernelInputs(const RayTraceRenderer& renderer, const KernelSample& sample) {
    const ShaderProgram& program = *renderer.traceProgram();
    const auto set = [&](const char* uniform, Vec3 v) { program.setVec3(uniform, v.x, v.y, v.z); };
    const RayCamera& camera = renderer.rayCamera();
    bindScene(program, renderer.textures());
    set("camPos", camera.position);
    set("camDir", camera.direction);
    set("camRight", camera.right);
    set("camUp", camera.up);
    set("sceneBBoxMin", renderer.sceneBounds.min);
    set("sceneBBoxMax", renderer.sceneBounds.max);
    program.setFloat("fScale", camera.scale);
    program.setInt("numBounds", static_cast<int>(renderer.packed().objectBounds.size()));
    program.setInt("numAllTris", renderer.packed().triangleCount());
    program.setInt("actIteration", 0);
    program.setVec2("aaPos", sample.shiftX, sample.shiftY);
    for (size_t i = 0; i < 4; ++i)
        set(("aoSample[" + std::to_string(i) + "]").c_str(), sample.openDirections[i]);
}

/// Draws with the program that is in use into attachments of the renderer's target (-1 = none) and
/// hands the last one's pixels back: four floats each, bottom row first.
std::vector<float> drawInto(RayTraceRenderer& renderer, std::initializer_list<int> attachments) {
    RenderTarget& target = *renderer.traceTarget();
    target.bind();
    glViewport(0, 0, target.width(), target.height());
    std::vector<GLenum> buffers;
    for (const int index : attachments)
        buffers.push_back(index < 0 ? GL_NONE : RenderTarget::attachmentEnum(index));
    glDrawBuffers(static_cast<GLsizei>(buffers.size()), buffers.data());
    drawScreenQuad();
    ShaderProgram::useNone();
    for (int unit = 5; unit >= 0; --unit)
        resetTextureUnit(unit);
    const int last = *(attachments.end() - 1);
    target.setReadBuffer(last);
    std::vector<float> pixels(4 * static_cast<size_t>(target.width() * target.height()));
    glReadPixels(0, 0, target.width(), target.height(), GL_RGBA, GL_FLOAT, pixels.data());
    target.unbind();
    return pixels;
}

std::vector<float> trace(RayTraceRenderer& renderer, const KernelSample& sample, int into = 0) {
    renderer.traceProgram()->use();
    setKernelInputs(renderer, sample);
    return drawInto(renderer, {into});
}

const float* pixelOf(const std::vector<float>& pixels, int width, int x, int y) {
    return &pixels[4 * static_cast<size_t>(y * width + x)];
}

/// Four directions of which none is another's mirror image.
constexpr KernelSample kSpread{0.004f,
                               -0.003f,
                               {{{0.6f, 0.3f, 0.7416f},
                                 {-0.5f, 0.7f, 0.5099f},
                                 {-0.2f, -0.4f, 0.8944f},
                                 {0.8f, -0.1f, 0.5916f}}}};

class RayKernelTest : public GLTest {
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
    void setZoomWindow(int x, int y, int width, int height) {
        SCENE& scene = scene_->scene();
        scene.viewWindowCenterX = x;
        scene.viewWindowCenterY = y;
        scene.viewWindowWidth = width;
        scene.viewWindowHeight = height;
    }
    /// Traces a sample and compares every `step`th pixel with the reference's path, but for those
    /// that show several things. Few differ (rays that graze an edge); returns how many were
    /// compared.
    int expectPaths(RayTraceRenderer& r, const KernelSample& sample, const char* name,
                    int step = 1);

    ReferenceScene reference_;
};

int RayKernelTest::expectPaths(RayTraceRenderer& r, const KernelSample& sample, const char* name,
                               int step) {
    const std::vector<float> pixels = trace(r, sample);
    const Vec3 eye = r.rayCamera().position;
    const auto ray = [&](int x, int y, float dx, float dy) {
        return rayThrough(r.rayCamera(), static_cast<float>(x) + dx, static_cast<float>(y) + dy,
                          r.width, r.height, sample);
    };
    const auto isInside = [&](int x, int y) {
        const auto thing = [&](float dx, float dy) {
            const Vec3 direction = ray(x, y, dx, dy);
            const ReferenceHit hit = reference_.firstHit(eye + direction * 0.1f, direction, kFar);
            return hit.triangle < 0 ? -1 : reference_.paintOf(hit);
        };
        const int center = thing(0.5f, 0.5f);
        return thing(0, 0) == center && thing(1, 0) == center && thing(0, 1) == center &&
               thing(1, 1) == center;
    };
    int compared = 0, different = 0;
    double difference = 0;
    for (int y = 0; y < r.height; y += step)
        for (int x = 0; x < r.width; x += step) {
            const Vec3 direction = ray(x, y, 0.5f, 0.5f);
            const Vec3 expected =
                reference_.pathColor(eye + direction * 0.1f, direction, x, y, sample);
            const float* actual = pixelOf(pixels, r.width, x, y);
            const Vec3 off = Vec3{actual[0], actual[1], actual[2]} - expected;
            const bool differs =
                std::max({std::abs(off.x), std::abs(off.y), std::abs(off.z)}) > 0.002f;
            if (differs && !isInside(x, y))
                continue;
            ++compared;
            different += differs ? 1 : 0;
            difference += static_cast<double>(off.x + off.y + off.z);
        }
    EXPECT_LT(different, compared / 100 + 1) << name << " of " << compared;
    EXPECT_NEAR(difference / compared, 0.0, 0.002) << name;
    return compared;
}

// Many objects of many triangles in many cells, from several sides and through a zoom window. Each
// has a colour of its own, so that the picture tells what each ray met.
TEST_F(RayKernelTest, RaysMeetTheTrianglesThatTheyShould) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> place(-12.0f, 12.0f);
    for (int k = 0; k < 24; ++k) {
        const int16_t color = paint({0.04f * static_cast<float>(k + 1), k % 2 ? 0.2f : 0.8f,
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
        {"from above", {0, 0, 40}, {0, 0, 0}, 0, 0, 0, 40, 40},
        {"from the side", {30, -14, 6}, {0, 0, 0}, 0, 0, 0, 40, 24},
        {"from within", {1, 2, 3}, {4, -7, 2}, 0, 0, 0, 24, 40},
        {"zoom window", {0, -40, 10}, {0, 0, 0}, 5000, -2500, 9000, 40, 30},
        {"along an axis", {0, 40, 0}, {0, 0, 0}, 0, 0, 0, 32, 32},
    };
    for (const Row& row : rows) {
        scene_->look(row.eye, row.target, 1.0);
        setZoomWindow(row.windowCenterX, row.windowCenterY, row.windowSize, row.windowSize);
        RayTraceRenderer& renderer = drawn(row.width, row.height);
        EXPECT_GT(renderer.packed().gridCells.size(), 200u);
        EXPECT_GT(expectPaths(renderer, {}, row.name, 3), row.width * row.height / 10) << row.name;
    }
}

// The preview is drawn with the view's camera, the rays with their own. Beside the scene's box
// alpha is -1.
TEST_F(RayKernelTest, RaysSeeWhatThePreviewShows) {
    add(block({-3, -2, 0}, {1, 2, 3}, paint({1, 1, 1})));
    add(ball({4, 1, 2}, 2.0f, 8, paint({1, 1, 1})));
    scene_->look({5, -12, 6}, {0.5f, 0, 1.5f}, 0.7);
    const struct Row {
        int x, y, width, height; ///< zoom window
    } rows[] = {{0, 0, 0, 0}, {4000, 3000, 20000, 20000}, {-3000, 2000, 24000, 12000}};
    for (const Row& row : rows) {
        setZoomWindow(row.x, row.y, row.width, row.height);
        RayTraceRenderer& renderer = drawn(64, 48);
        const Picture preview = Picture::read(64, 48);
        const std::vector<float> pixels = trace(renderer, {});
        int covered = 0, within = 0, beside = 0;
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x) {
                const int grey = preview.at(x, y).red;
                if (grey != 0 && grey < 126)
                    continue; // an edge
                const float* pixel = pixelOf(pixels, 64, x, y);
                EXPECT_EQ(pixel[0] > 0.0f, grey != 0) << row.width << ": " << x << ", " << y;
                EXPECT_TRUE(pixel[3] == 1.0f || (pixel[3] == -1.0f && grey == 0)) << pixel[3];
                covered += grey != 0 ? 1 : 0;
                within += grey == 0 && pixel[3] > 0.0f ? 1 : 0;
                beside += pixel[3] < 0.0f ? 1 : 0;
            }
        EXPECT_GT(covered, 300);
        EXPECT_LT(covered, 64 * 48 - 300);
        EXPECT_GT(beside, 50);
        EXPECT_GT(within, 50);
    }
}

TEST_F(RayKernelTest, NearbySurfacesDarken) {
    add(plate(-5, -5, 5, 5, 0, paint({0.8f, 0.8f, 0.8f})));
    add(block({-1, -1, 0}, {0.5f, 2, 1.5f}, paint({0.9f, 0.5f, 0.2f})));
    add(ball({2, -1, 0.7f}, 0.7f, 9, paint({0.3f, 0.6f, 0.9f})));
    add(quad({2, 4, 0}, {2, 4, 3}, {-4, 4, 3}, {-4, 4, 0}, paint({0.5f, 0.9f, 0.5f})));
    scene_->look({1.5f, -5, 4}, {0.2f, 0.5f, 0.3f}, 0.9);
    EXPECT_GT(expectPaths(drawn(), kSpread, "corners"), 2500);
}

// A mirror shows a red plate behind the camera; glass shows a blue one behind it.
TEST_F(RayKernelTest, MirrorsAndGlassCarryPathsOn) {
    const int16_t mirror = paint({1, 1, 1}, 1.0f, 1.0f);
    const int16_t glass = paint({0.4f, 0.8f, 0.4f}, 0.25f, 0.0f);
    const int16_t red = paint({1.0f, 0.2f, 0.0f});
    const int16_t blue = paint({0.0f, 0.2f, 1.0f});
    add(quad({-6, 10, -4}, {-6, 10, 4}, {0, 10, 4}, {0, 10, -4}, mirror)); // the left half
    add(quad({0, 10, -4}, {0, 10, 4}, {6, 10, 4}, {6, 10, -4}, glass));    // the right half
    add(quad({-20, -6, -9}, {-20, -6, 9}, {0, -6, 9}, {0, -6, -9}, red));  // behind the camera
    add(quad({0, 14, -9}, {0, 14, 9}, {20, 14, 9}, {20, 14, -9}, blue));   // behind the glass
    scene_->look({0, 0, 0}, {0, 10, 0}, 0.6);
    EXPECT_GT(expectPaths(drawn(48, 48), kSpread, "mirror and glass"), 2000);
}

// Through more panes of glass than a path takes.
TEST_F(RayKernelTest, PathsEndAfterFiveSurfaces) {
    const int16_t pane = paint({0.4f, 0.4f, 0.4f}, 0.5f, 0.0f);
    for (int k = 0; k < 8; ++k)
        add(plate(-9, -9, 9, 9, -2.0f * static_cast<float>(k), pane));
    RayTraceRenderer& renderer = drawn(16, 16);
    const std::vector<float> pixels = trace(renderer, {});
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
    EXPECT_GT(expectPaths(renderer, {}, "panes"), 100);
}

// A picture accumulates on another one, which lies beside it.
TEST_F(RayKernelTest, TheAccumulationMovesTowardsTheSample) {
    add(plate(-6, -6, 0, 6, 0, paint({0.25f, 0.5f, 1.0f})));
    add(plate(0, -6, 6, 6, 0, paint({1.0f, 0.5f, 0.25f})));
    RayTraceRenderer& renderer = drawn(32, 32);
    const std::vector<float> before = trace(renderer, {.shiftX = 0.2f}, 1);
    const std::vector<float> act = trace(renderer, {});
    const RenderTarget& target = *renderer.traceTarget();
    const ShaderProgram& program = *renderer.finalProgram();
    for (const bool shown : {false, true}) {
        program.use();
        bindRectangle(program, "accumTex", 0, target.colorTexture(1));
        bindRectangle(program, "actTex", 1, target.colorTexture(0));
        program.setFloat("iterFac", 0.25f);
        const std::vector<float> pixels =
            shown ? drawInto(renderer, {-1, 2}) : drawInto(renderer, {2});
        int changed = 0;
        for (size_t i = 0; i < pixels.size(); ++i) {
            const float mean = before[i] + (act[i] - before[i]) * 0.25f;
            const float expected = i % 4 == 3 ? 1.0f : shown ? std::pow(mean, 0.6f) : mean;
            ASSERT_NEAR(pixels[i], expected, 1e-4f) << i << (shown ? " shown" : "");
            changed += std::abs(act[i] - before[i]) > 0.1f ? 1 : 0;
        }
        EXPECT_GT(changed, 100);
    }
}

} // namespace
} // namespace ogl::test
