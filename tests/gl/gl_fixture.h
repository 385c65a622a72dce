// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "math/vector3.h"
#include "platform/win32.h"
#include "render/render_context.h"
#include "render/renderer.h"
#include "support/dib.h"
#include "support/scene_fixture.h"
#include "support/temp_folder.h"

#include <array>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace ogl::test {

/// A picture read from the back buffer, bottom row first.
class Picture {
  public:
    Picture(int width, int height);

    /// Reads the current read buffer.
    static Picture read(int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }
    /// `y` counts upwards. Pixels outside are black.
    Pixel at(int x, int y) const;
    /// Mean of the rectangle's pixels, its far edges left out.
    std::array<double, 3> mean(int left, int bottom, int right, int top) const;
    /// Pixels of the rectangle that the test accepts.
    int count(int left, int bottom, int right, int top,
              const std::function<bool(Pixel)>& accepts) const;
    /// Writes a PPM file, for looking at.
    void write(const std::string& path) const;

  private:
    int width_;
    int height_;
    std::vector<uint8_t> rgba_;
};

/// True when every channel is within `tolerance`.
bool isNear(Pixel a, Pixel b, int tolerance);

/// A pixel at or beside (x, y) that has the colour.
bool isFoundNear(const Picture& picture, int x, int y, Pixel color, int tolerance);

/// Pixels in which two pictures or bitmaps, counted upwards, differ by more than the tolerance.
template <class A, class B>
int differences(const A& a, const B& b, int width, int height, int tolerance = 0) {
    int count = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            count += isNear(a.at(x, y), b.at(x, y), tolerance) ? 0 : 1;
    return count;
}

/// A bitmap as hosts make them, filled with 0x77.
class Bitmap {
  public:
    Bitmap(int width, int height, int bits) : dib_(width, height, bits, 0x77) {}

    HBITMAP handle() const { return dib_.handle(); }
    /// `y` counts upwards.
    Pixel at(int x, int y) const { return dib_.at(x, dib_.height() - 1 - y); }
    bool isUntouched() const { return dib_.touchedBytes() == 0; }

  private:
    Dib dib_;
};

/// Tests that draw: a view on the library's own hidden window with four samples per pixel. The
/// scene is looked at from straight above: the plane z = 0 spans -10 .. 10 in a view of
/// kViewSize x kViewSize pixels, x to the right, y upwards. Fails on GL objects that outlive
/// the test.
class GLTest : public testing::Test {
  protected:
    static constexpr int kViewSize = 200;

    GLTest();
    void SetUp() override;
    void TearDown() override;

    /// Makes the view's context current.
    void makeCurrent() const;
    /// Makes a renderer as a drawing call does.
    template <class T> T& select() {
        auto made = std::make_unique<T>(*context_);
        T& result = *made;
        renderer_ = std::move(made);
        result.resetGLState();
        result.createResources();
        result.scene = &scene_->scene();
        return result;
    }
    /// Draws a frame into the window's back buffer and reads it.
    Picture drawFrame();
    /// The pixel that shows a point of the scene.
    static int pixelX(float x) { return static_cast<int>((x + 10.0f) * kViewSize / 20.0f); }
    static int pixelY(float y) { return pixelX(y); }
    Pixel pixelAt(const Picture& picture, float x, float y) const {
        return picture.at(pixelX(x), pixelY(y));
    }

    std::unique_ptr<RenderContext> context_;
    std::unique_ptr<SceneFixture> scene_;
    std::unique_ptr<Renderer> renderer_;
    TempFolder folder_;
};

/// The rectangle (left, bottom) to (right, top) at height z, its front to the camera of GLTest.
FaceShape plate(float left, float bottom, float right, float top, float z = 0.0f,
                int16_t material = 0);

} // namespace ogl::test
