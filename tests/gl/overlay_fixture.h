// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/drawing/fixed_renderer.h"
#include "gl/gl_fixture.h"
#include "host/host_memory.h"

#include <functional>
#include <string>
#include <vector>

namespace ogl::test {

/// Tests of what is drawn over a frame: a technical drawing without surfaces on light grey ground,
/// overlays and heads-up display allowed. Positions in tests count downwards from the top of the
/// view, as the records do.
class OverlayTest : public GLTest {
  protected:
    static constexpr Pixel kGround{230, 230, 230};

    void SetUp() override;
    /// Makes the renderer that frame() draws with; call after the scene's commit().
    void selectDrawing();
    /// Draws a frame.
    Picture frame();

    SCENE& scene() { return scene_->scene(); }
    VIEW& view() { return scene_->view(); }
    /// A pixel by its place from the top left corner.
    static Pixel at(const Picture& picture, int x, int y) {
        return picture.at(x, picture.height() - 1 - y);
    }
    /// Pixels of the rectangle, its far edges left out, that have the colour.
    static int countNear(const Picture& picture, const RECT& area, Pixel color, int tolerance);
    /// Where a point of the scene, at any height, is seen: pixels from the left and the top.
    static POINT seenAt(Vec3 point);
    /// A line of the colour runs through the pixel, counted from the top left corner, or beside it.
    /// It may cover the pixel by half.
    static bool isLineAt(const Picture& picture, int x, int y, Pixel color);
    /// A line of the colour is seen where the point of the scene is.
    static bool isLineSeen(const Picture& picture, Vec3 point, Pixel color);
    /// Zero-terminated text in the host's memory.
    Ptr32<uint8_t> hostText(const std::string& text);
    /// The picture of the same frame with `draw` called in window pixels instead of the overlays.
    Picture expectedFrame(const std::function<void()>& draw);
    /// Draws text at a place of the view, glyph by glyph.
    void drawGlyphs(const std::string& text, int x, int y, Pixel color) const;

    host::HostMemory memory_;
};

/// Pixels in which two pictures of one size differ.
int differingPixels(const Picture& a, const Picture& b);

} // namespace ogl::test
