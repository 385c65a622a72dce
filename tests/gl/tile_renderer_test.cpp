// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/gl_fixture.h"
#include "gpu/tile_renderer.h"

#include <cstring>

namespace ogl {
namespace {

class TileRendererTest : public test::GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glDisable(GL_CULL_FACE);
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_ALPHA_TEST);
        glDisable(GL_DITHER);
        glReadBuffer(GL_BACK);
        glDrawBuffer(GL_BACK);
    }
};

TEST_F(TileRendererTest, DrawsNothingWithoutAPartToKeep) {
    TileRenderer tiles;
    tiles.setImageSize(10, 10);
    tiles.setTileSize(8, 8, 4);
    tiles.beginTile();
    EXPECT_FALSE(tiles.endTile());
    tiles.setTileSize(8, 8, 1);
    tiles.setImageSize(0, 10);
    tiles.beginTile();
    EXPECT_FALSE(tiles.endTile());
}

TEST_F(TileRendererTest, SplitsTheProjection) {
    TileRenderer tiles;
    tiles.setImageSize(100, 50);
    tiles.setTileSize(60, 35, 5); // two by two
    tiles.setPerspective(90.0, 2.0, 0.5, 10.0);
    tiles.setTileBuffer(GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    // Bounds on the near plane: -1 .. 1 and -0.5 .. 0.5 for the image, 0.02 a pixel.
    const double expected[4][4] = {{-1.1, 0.1, -0.6, 0.1},
                                   {-0.1, 1.1, -0.6, 0.1},
                                   {-1.1, 0.1, -0.1, 0.6},
                                   {-0.1, 1.1, -0.1, 0.6}};
    for (const auto& bounds : expected) {
        tiles.beginTile();
        double loaded[16] = {};
        glGetDoublev(GL_PROJECTION_MATRIX, loaded);
        const double width = bounds[1] - bounds[0];
        const double height = bounds[3] - bounds[2];
        EXPECT_NEAR(loaded[0], 1.0 / width, 1e-5);
        EXPECT_NEAR(loaded[5], 1.0 / height, 1e-5);
        EXPECT_NEAR(loaded[8], (bounds[0] + bounds[1]) / width, 1e-5);
        EXPECT_NEAR(loaded[9], (bounds[2] + bounds[3]) / height, 1e-5);
        EXPECT_NEAR(loaded[10], -10.5 / 9.5, 1e-5);
        EXPECT_NEAR(loaded[14], -10.0 / 9.5, 1e-5);
        tiles.endTile();
    }
}

/// Each pixel of the picture in a colour of its own.
void drawPixels(int width, int height) {
    for (int y = -5; y < height + 5; ++y)
        for (int x = -5; x < width + 5; ++x) {
            glColor3ub(static_cast<GLubyte>(x + 5), static_cast<GLubyte>(y + 5),
                       static_cast<GLubyte>(7 * x + 3 * y));
            glRectf(static_cast<float>(x), static_cast<float>(y), static_cast<float>(x + 1),
                    static_cast<float>(y + 1));
        }
}

TEST_F(TileRendererTest, PutsEveryPixelInItsPlaceInBothRowOrders) {
    constexpr int kWidth = 37;
    constexpr int kHeight = 23;
    constexpr size_t kStride = 112; // 3 x 37, padded to four
    for (const TileToken order : {TileToken::BottomToTop, TileToken::TopToBottom}) {
        std::vector<uint8_t> image(kStride * kHeight, 0x77);
        std::vector<uint8_t> tile(16 * 12 * 4);
        TileRenderer tiles;
        tiles.setTileSize(16, 12, 3);
        tiles.setImageSize(kWidth, kHeight);
        tiles.setImageBuffer(GL_RGB, GL_UNSIGNED_BYTE, image.data());
        tiles.setTileBuffer(GL_RGBA, GL_UNSIGNED_BYTE, tile.data());
        tiles.setOrtho({0, kWidth, 0, kHeight, -1, 1});
        tiles.setRowOrder(order);
        tiles.setRowOrder(TileToken::Rows); // no order
        EXPECT_EQ(tiles.get(TileToken::Columns), 4);
        EXPECT_EQ(tiles.get(TileToken::Rows), 4);
        EXPECT_EQ(tiles.get(TileToken::CurrentRow), -1);
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        glPixelStorei(GL_PACK_SKIP_ROWS, 2);
        glViewport(1, 2, 33, 44);
        do {
            tiles.beginTile();
            drawPixels(kWidth, kHeight);
            const int column = tiles.get(TileToken::CurrentColumn);
            const int row = tiles.get(TileToken::CurrentRow);
            const bool more = tiles.endTile();
            // The lower left pixel of the tile with its border.
            EXPECT_EQ(tile[0], column * 10 - 3 + 5);
            EXPECT_EQ(tile[1], row * 6 - 3 + 5);
            if (!more)
                break;
        } while (true);
        GLint skipped = 0;
        GLint viewport[4] = {};
        glGetIntegerv(GL_PACK_SKIP_ROWS, &skipped);
        glPixelStorei(GL_PACK_SKIP_ROWS, 0);
        glGetIntegerv(GL_VIEWPORT, viewport);
        EXPECT_EQ(skipped, 2);
        EXPECT_EQ(viewport[0] * 1000 + viewport[3], 1044);
        for (int y = 0; y < kHeight; ++y) {
            const uint8_t* line = image.data() + kStride * static_cast<size_t>(y);
            for (int x = 0; x < kWidth; ++x) {
                const uint8_t expected[3] = {static_cast<uint8_t>(x + 5),
                                             static_cast<uint8_t>(y + 5),
                                             static_cast<uint8_t>(7 * x + 3 * y)};
                ASSERT_EQ(std::memcmp(line + 3 * x, expected, 3), 0) << x << ", " << y;
            }
            EXPECT_EQ(line[kStride - 1], 0x77) << y;
        }
    }
}

TEST_F(TileRendererTest, PutsTheRasterPositionOutsideTheTileToo) {
    TileRenderer tiles;
    tiles.setTileSize(16, 16, 0);
    tiles.setImageSize(32, 32);
    tiles.setOrtho({0, 32, 0, 32, -1, 1});
    double loaded[2][16] = {};
    const auto expectPosition = [](float x, float y, const char* name) {
        float position[4] = {};
        GLboolean valid = GL_FALSE;
        glGetFloatv(GL_CURRENT_RASTER_POSITION, position);
        glGetBooleanv(GL_CURRENT_RASTER_POSITION_VALID, &valid);
        EXPECT_TRUE(valid) << name;
        EXPECT_NEAR(position[0], x, 1e-3f) << name;
        EXPECT_NEAR(position[1], y, 1e-3f) << name;
        EXPECT_NEAR(position[2], 0.25f, 1e-3f) << name;
    };
    tiles.beginTile();
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1.0f, 0.0f, 0.0f);
    glGetDoublev(GL_PROJECTION_MATRIX, loaded[0]);
    tiles.rasterPos3f(2.0f, 7.0f, 0.5f);
    expectPosition(3.0f, 7.0f, "inside");
    tiles.rasterPos3f(-9.0f, 40.0f, 0.5f);
    expectPosition(-8.0f, 40.0f, "outside");
    glGetDoublev(GL_PROJECTION_MATRIX, loaded[1]);
    EXPECT_EQ(std::memcmp(loaded[0], loaded[1], sizeof loaded[0]), 0);
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);
    tiles.endTile();
    tiles.beginTile(); // the second column
    tiles.rasterPos3f(2.0f, 7.0f, 0.5f);
    expectPosition(-13.0f, 7.0f, "second column");
    while (tiles.endTile())
        tiles.beginTile();
    glViewport(0, 0, 16, 16);
    tiles.rasterPos3f(100.0f, 100.0f, 0.0f); // no tile: clipped as ever
    GLboolean valid = GL_TRUE;
    glGetBooleanv(GL_CURRENT_RASTER_POSITION_VALID, &valid);
    EXPECT_FALSE(valid);
}

} // namespace
} // namespace ogl
