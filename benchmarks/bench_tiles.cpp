// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_tiles.h"

#include "bare_frame.h"
#include "bench_scene.h"
#include "drawing_renderer.h"
#include "figures.h"
#include "render/bitmap_frame.h"

#include <memory>
#include <vector>

namespace ogl::bench {

namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;
constexpr double kMegapixels = kWidth * 1e-6 * kHeight;
constexpr int kSide = 2048; ///< of a tile
constexpr int kBorder = 768;
constexpr int kInner = kSide - 2 * kBorder;
constexpr int kRounds = 3;

/// The picture in memory, blue first, rows padded to 4 bytes.
class Print {
  public:
    Print() : pixels_(static_cast<size_t>(kStride) * kHeight) {}
    BitmapTarget target() { return {kWidth, kHeight, 24, kStride, pixels_.data()}; }
    const std::vector<uint8_t>& pixels() const { return pixels_; }

  private:
    static constexpr int kStride = kWidth * 3;
    std::vector<uint8_t> pixels_;
};

/// Averages the samples of a part of the window into the print.
class Reader {
  public:
    Reader() {
        color_.create();
        framebuffer_.create();
        glBindRenderbuffer(GL_RENDERBUFFER, color_.name());
        glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, kInner, kInner);
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_.name());
        glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                                  color_.name());
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    }
    void read(int width, int height, void* pixels) const {
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_.name());
        glBlitFramebuffer(kBorder, kBorder, kBorder + width, kBorder + height, 0, 0, width, height,
                          GL_COLOR_BUFFER_BIT, GL_NEAREST);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer_.name());
        glReadPixels(0, 0, width, height, GL_BGR, GL_UNSIGNED_BYTE, pixels);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
    }

  private:
    GLRenderbuffer color_;
    GLFramebuffer framebuffer_;
};

/// The whole picture with a plain program: the viewport moves, the scissor box stays.
void printBarely(const BareFrame& frame, const Reader& reader, const BitmapTarget& target) {
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_ROW_LENGTH, kWidth);
    for (int y = 0; y < kHeight; y += kInner)
        for (int x = 0; x < kWidth; x += kInner) {
            const int width = std::min(kInner, kWidth - x);
            const int height = std::min(kInner, kHeight - y);
            glViewport(kBorder - x, kBorder - y, kWidth, kHeight);
            glEnable(GL_SCISSOR_TEST);
            glScissor(kBorder - 1, kBorder - 1, width + 2, height + 2);
            frame.drawWithin({x - 4.0, y - 4.0, x + width + 4.0, y + height + 4.0});
            glDisable(GL_SCISSOR_TEST);
            reader.read(width, height,
                        target.pixels +
                            static_cast<size_t>(target.strideBytes) * static_cast<size_t>(y) +
                            static_cast<size_t>(x) * 3);
        }
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
}

} // namespace

bool benchTiles() {
    HiddenView view(kSide, kSide);
    if (!view.isReady())
        return false;
    const auto fixture = std::make_unique<test::SceneFixture>();
    const SceneSize size = millionTriangles(20);
    makeScene(*fixture, size);
    fixture->view().flags = kViewNoOverlays | kViewNoHud;
    const auto renderer = makeDrawingRenderer(view, kSide, kSide, fixture->scene());
    Print ours;
    Print bares;
    const auto print = [&](bool everything) {
        drawTiles(*renderer, ours.target(),
                  [&] {
                      if (everything)
                          renderer->tileVolume = nullptr;
                      renderer->drawToWindow(view.context().primary);
                  },
                  {});
    };
    renderer->drawToWindow(view.context().primary); // builds

    ColorVertexArray edges;
    buildDrawingEdges(fixture->scene(), size.objects, edges);
    BareFrame frame(fixture->view(), size.materials, edges);
    PerspectiveCamera camera;
    setViewCamera(camera, fixture->scene(), kWidth, kHeight, renderer->camera.far);
    camera.apply();
    frame.place(kWidth, kHeight);
    const Reader reader;
    Cost tiled;
    Cost bare;
    for (int i = 0; i < kRounds; ++i) { // taking turns, so that both see the same neighbours
        camera.apply();
        keepLeast(bare, leastCost(1, [&] { printBarely(frame, reader, bares.target()); }));
        keepLeast(tiled, leastCost(1, [&] { print(false); }));
    }
    const Cost everything = leastCost(1, [&] { print(true); });
    size_t different = 0;
    for (size_t i = 0; i < ours.pixels().size(); ++i)
        different += ours.pixels()[i] != bares.pixels()[i] ? 1 : 0;
    printFigure("tiled_print_1m_triangles", tiled.time / kMegapixels, "ms/Mpixel");
    printFigure("bare_tiled_print_1m_triangles", bare.time / kMegapixels, "ms/Mpixel");
    printRatio("tiled_print_to_bare", tiled, bare);
    printRatio("tiled_print_everything_in_every_tile", everything, tiled);
    printFigure("tiled_print_bytes_unlike_bare",
                100.0 * static_cast<double>(different) / static_cast<double>(ours.pixels().size()),
                "%");
    return true;
}

} // namespace ogl::bench
