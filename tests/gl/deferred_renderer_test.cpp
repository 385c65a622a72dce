// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/photo_fixture.h"
#include "gl/shading_formulas.h"

namespace ogl {
namespace {

using test::isNear;
using test::Picture;
using test::Pixel;
using test::plate;

class DeferredRendererTest : public test::PhotoTest {};

void expectPixel(Pixel actual, Pixel expected, const char* what) {
    EXPECT_TRUE(isNear(actual, expected, 2))
        << what << ": " << actual.red << ' ' << actual.green << ' ' << actual.blue << ", not "
        << expected.red << ' ' << expected.green << ' ' << expected.blue;
}

TEST_F(DeferredRendererTest, WallAndBackground) {
    const Pixel brick{180, 90, 60};
    scene_->addObject();
    scene_->addFace(plate(-5, -5, 5, 5, 0, static_cast<int16_t>(addColored(brick))));
    setSun(30, -50);
    selectPhoto();
    for (const bool fxaa : {false, true}) {
        context_->settings.useFXAA = fxaa ? 1 : 0;
        const Picture picture = drawFrame();
        const char* what = fxaa ? "with FXAA" : "without FXAA";
        expectPixel(pixelAt(picture, 0, 0), shown(brick, sunOn({0, 0, 1})), what);
        expectPixel(pixelAt(picture, 8, 8), kBackground, what);
    }
}

} // namespace
} // namespace ogl
