// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Render mode 8 with the key enableGPUrt, as a host meets it.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/dib.h"
#include "support/host_window.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ogl::test {
namespace {

constexpr Pixel kGrey{128, 128, 128};
constexpr Pixel kBlack{0, 0, 0};

bool isGrey(Pixel p) {
    return std::abs(p.red - kGrey.red) <= 1 && p.red == p.green && p.green == p.blue;
}

TEST(RayTraceMode, ShowsTheGreyPreviewInWindowsAndLeavesBitmaps) {
    const TempFolder folder;
    writeFile(folder.file("space.ini"), "[OpenGL]\nenableGPUrt=1\n");
    HostWindow window{160, 120};
    RenderContext* context =
        library().create(window.handle(), 0, folder.hostFile("space.ini").c_str());
    ASSERT_NE(context, nullptr) << readFile(folder.file("ogl.log"));
    {
        WallScene scene;
        scene.setMode(kRenderModePhoto);
        scene.cacheEntry()->changeFlags = 0x7;
        const Dib untouched(160, 120);
        EXPECT_EQ(library().drawInDibSection(context, scene.record(), 1, untouched.handle()), 1);
        EXPECT_EQ(untouched.touchedBytes(), 0u);
        const Dib frame(160, 120);
        EXPECT_EQ(library().drawInWindow(context, scene.record(), 1, 1, nullptr, frame.handle()),
                  1);
        EXPECT_TRUE(isGrey(frame.at(80, 60)));
        EXPECT_EQ(frame.at(10, 60), kBlack);
        EXPECT_EQ(scene.cacheEntry()->changeFlags, 0x6u);

        // Another mode and back again.
        scene.setMode(kRenderModeDrawing);
        EXPECT_EQ(library().drawInWindow(context, scene.record(), 1, 1, nullptr, frame.handle()),
                  1);
        EXPECT_EQ(frame.at(10, 60), WallScene::kPaper);
        scene.setMode(kRenderModePhoto);
        EXPECT_EQ(library().drawInWindow(context, scene.record(), 1, 1, nullptr, frame.handle()),
                  1);
        EXPECT_TRUE(isGrey(frame.at(80, 60)));
        EXPECT_EQ(frame.at(10, 60), kBlack);
        const std::string log = readFile(folder.file("ogl.log"));
        EXPECT_EQ(log.find("[Shader]"), std::string::npos) << log;
        scene.handBack();
    }
    library().release(context);
}

} // namespace
} // namespace ogl::test
