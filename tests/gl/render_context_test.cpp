// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/render_context.h"

#include "gl/window_fixture.h"
#include "ogl/host_records.h"
#include "platform/bitmap_font.h"
#include "platform/pixel_format.h"
#include "support/environment.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace ogl::test {
namespace {

/// A view of a host window, its context current.
struct HostView {
    TempFolder folder;
    TestWindow window{200, 100};
    RenderContext context{window.handle(), 0u, folder.hostFile("space.ini").c_str()};
    bool ready =
        context.initializeOpenGL() && wglMakeCurrent(context.primary.dc, context.primary.glContext);
};

struct SampleRequest {
    const char* setting;
    int largest; ///< name of the best format that may be chosen
};

const SampleRequest kSampleRequests[] = {{"1", 1}, {"3", 1}, {"4", 4}, {"8", 8}, {"32", 16}};

TEST(RenderContext, LogsTheDriverThatItFound) {
    for (const SampleRequest& request : kSampleRequests) {
        SCOPED_TRACE(request.setting);
        const TempFolder folder;
        writeFile(folder.file("space.ini"),
                  std::string("[OpenGL]\nnumAASamplesDrawing=") + request.setting + "\n");
        const TestWindow window(64, 48);
        RenderContext context(window.handle(), 0, folder.hostFile("space.ini").c_str());
        ASSERT_TRUE(context.initializeOpenGL());
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        ASSERT_TRUE(wglMakeCurrent(context.primary.dc, context.primary.glContext));

        int major = 0;
        int minor = 0;
        ASSERT_EQ(std::sscanf(reinterpret_cast<const char*>(glGetString(GL_VERSION)), "%d.%d",
                              &major, &minor),
                  2);
        int languageMajor = 0;
        int languageMinor = 0;
        ASSERT_EQ(
            std::sscanf(reinterpret_cast<const char*>(glGetString(GL_SHADING_LANGUAGE_VERSION)),
                        "%d.%d", &languageMajor, &languageMinor),
            2);
        ASSERT_EQ(languageMinor % 10, 0); // as in 4.50
        GLint textureSamples = 0;
        glGetIntegerv(GL_MAX_COLOR_TEXTURE_SAMPLES, &textureSamples);
        GLint samples = 0;
        glGetIntegerv(GL_SAMPLES, &samples);
        EXPECT_EQ(context.primary.samples, samples);
        int named = 0;
        ASSERT_EQ(std::sscanf(context.primary.aaName, "%dx MSAA", &named), 1);
        EXPECT_LE(named, request.largest);
        EXPECT_GE(samples, named);
        EXPECT_EQ(context.glVersion, 100 * major + 10 * minor);
        const std::string vendors[] = {"", "Vendor=Nvidia\n", "Vendor=Ati\n", "Vendor=Intel\n"};
        EXPECT_EQ(readFile(folder.file("ogl.log")),
                  "[Error]\nKeyboard mouse problem!=\n\n[OpenGL]\n" + vendors[context.vendor] +
                      "Version=" + std::to_string(major) + std::to_string(minor) +
                      "0\nGLSL Version=" + std::to_string(languageMajor) + "." +
                      std::to_string(languageMinor / 10) + "\nAA Format=" + std::to_string(named) +
                      "x MSAA\nMaxTextureAA=" + std::to_string(textureSamples) + "\n\n");
    }
}

TEST(RenderContext, SampleRequestsRoundDownToTheLadder) {
    const std::pair<int, int> rungs[] = {{-1, 1}, {3, 1},  {4, 4},  {7, 4},
                                         {8, 8},  {15, 8}, {16, 16}};
    for (const auto& [requested, samples] : rungs)
        EXPECT_EQ(sampleCountFor(requested), samples) << requested;
}

TEST(RenderContext, AWindowThatIsGoneIsRefusedWithTheCode) {
    const TempFolder folder;
    writeFile(folder.file("space.ini"), "[OpenGL]\n");
    HWND gone = nullptr;
    {
        const TestWindow window(64, 48);
        gone = window.handle();
    }
    RenderContext context(gone, 0, folder.hostFile("space.ini").c_str());
    EXPECT_FALSE(context.initializeOpenGL());
    EXPECT_EQ(context.glReady, 0);
    EXPECT_EQ(readFile(folder.file("ogl.log")),
              "[Error]\nKeyboard mouse problem!=\nPrimary GL Context init failed=-5\n\n");
}

struct Location {
    const char* name;
    std::string iniPath;
    std::string logFile; ///< as the system names it
    std::string directory;
};

TEST(RenderContext, LogsBesideTheConfiguration) {
    const TempFolder folder;
    const TempFolder current;
    const ScopedCurrentDirectory scope(current.path());
    const std::string host = folder.hostFile("");
    const Location locations[] = {
        {"full path", folder.hostFile("space.ini"), folder.file("ogl.log"), host},
        {"bare name", "my.ini", current.file("ogl.log"), ""},
        {"relative folder", "sub\\my.ini", current.file("sub/ogl.log"), "sub\\"},
    };
    std::filesystem::create_directory(current.file("sub"));
    for (const Location& location : locations) {
        SCOPED_TRACE(location.name);
        const RenderContext context(nullptr, 0, location.iniPath.c_str());
        EXPECT_EQ(context.directory, location.directory);
        // The missing file and the missing devices, each once.
        EXPECT_EQ(readFile(location.logFile),
                  "[Error]\nNo options in space.ini found!=\nKeyboard mouse problem!=\n\n");
    }
}

TEST(RenderContext, AnEmptyPathReadsTheCurrentFolderAndLogsIntoTheRoot) {
    const TempFolder current;
    const ScopedCurrentDirectory scope(current.path());
    writeFile(current.file("space.ini"), "[OpenGL]\nuseFXAA=1\n");
    const TestWindow window(64, 48);
    // With options and devices there is nothing to log, so that no file appears in the root.
    const RenderContext context(window.handle(), kCreateInputDevices, "");
    EXPECT_EQ(context.settings.useFXAA, 1);
    EXPECT_EQ(context.directory, "\\");
    EXPECT_EQ(context.errorLog.path(), "\\ogl.log");
    EXPECT_TRUE(readFile(current.file("ogl.log")).empty());
}

TEST(RenderContext, AFolderThatCannotBeWrittenChangesNothingElse) {
    const TempFolder folder;
    const TestWindow window(64, 48);
    RenderContext context(window.handle(), 0, folder.hostFile("nowhere/space.ini").c_str());
    EXPECT_TRUE(context.initializeOpenGL());
    EXPECT_EQ(context.settings.drawingSamples.value, 4.0f);
}

TEST(RenderContext, ASecondSurfaceSharesObjectsAndGoesAlone) {
    HostView view;
    ASSERT_TRUE(view.ready);
    const TestWindow second(80, 60);
    GLSurface& surface = view.context.secondary;
    surface.window = second.handle();
    ASSERT_EQ(createContext(surface, 4, 1, GetDC(second.handle())), kContextCreated);
    EXPECT_EQ(wglGetCurrentContext(), surface.glContext);
    EXPECT_EQ(surface.isSecondary, 1);

    ASSERT_TRUE(wglMakeCurrent(view.context.primary.dc, view.context.primary.glContext));
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    ASSERT_TRUE(wglMakeCurrent(surface.dc, surface.glContext));
    EXPECT_TRUE(glIsTexture(texture));

    for (int times = 0; times < 2; ++times) {
        tearDown(surface);
        EXPECT_EQ(surface.window, nullptr);
        EXPECT_EQ(surface.dc, nullptr);
        EXPECT_EQ(surface.glContext, nullptr);
        EXPECT_EQ(surface.isSecondary, -1);
        EXPECT_EQ(surface.samples, -1);
    }
    ASSERT_TRUE(wglMakeCurrent(view.context.primary.dc, view.context.primary.glContext));
    EXPECT_TRUE(glIsTexture(texture));
    glDeleteTextures(1, &texture);
}

TEST(RenderContext, AWindowKeepsItsPixelFormatForLaterViews) {
    const TempFolder folder;
    const TestWindow window(64, 48);
    int samples = 0;
    for (const char* setting : {"4", "1", "16"}) {
        SCOPED_TRACE(setting);
        writeFile(folder.file("space.ini"),
                  std::string("[OpenGL]\nnumAASamplesDrawing=") + setting + "\n");
        RenderContext context(window.handle(), 0, folder.hostFile("space.ini").c_str());
        ASSERT_TRUE(context.initializeOpenGL());
        if (samples == 0)
            samples = context.primary.samples;
        EXPECT_EQ(context.primary.samples, samples);
    }
}

TEST(RenderContext, DebugContextsOnlyOnRequest) {
    for (const char* value : {"1", "0", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(value != nullptr ? value : "unset");
        const ScopedEnvironment variable("OGL_DEBUG", value);
        HostView view;
        ASSERT_TRUE(view.ready);
        GLint contextFlags = 0;
        glGetIntegerv(GL_CONTEXT_FLAGS, &contextFlags);
        const bool wanted = value != nullptr && std::string(value) == "1";
        EXPECT_EQ((contextFlags & GL_CONTEXT_FLAG_DEBUG_BIT) != 0, wanted);
    }
}

/// Pixels that a text covers when it is drawn at (20, 40), and whether all lie near it.
struct Ink {
    int pixels = 0;
    int right = 0; ///< rightmost column, from the text's origin
    int onBaseLine = 0;
    bool nearby = true;
};

Ink drawText(const RenderContext& context, const std::string& text) {
    constexpr int kWidth = 200;
    constexpr int kHeight = 100;
    glDrawBuffer(GL_BACK);
    glReadBuffer(GL_BACK);
    glDisable(GL_MULTISAMPLE);
    glViewport(0, 0, kWidth, kHeight);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, kWidth, 0, kHeight, -1, 1);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(1, 1, 1);
    glRasterPos2i(20, 40);
    glListBase(context.fontListBase - static_cast<unsigned>(kFontFirstCharacter));
    glCallLists(static_cast<GLsizei>(text.size()), GL_UNSIGNED_BYTE, text.data());
    std::vector<GLubyte> pixels(kWidth * kHeight);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kWidth, kHeight, GL_RED, GL_UNSIGNED_BYTE, pixels.data());
    Ink ink;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            if (pixels[static_cast<size_t>(y * kWidth + x)] < 128)
                continue;
            ++ink.pixels;
            ink.right = std::max(ink.right, x - 20);
            ink.onBaseLine += y == 40 ? 1 : 0;
            ink.nearby = ink.nearby && x >= 18 && y >= 40 - 6 && y <= 40 + 16;
        }
    return ink;
}

TEST(RenderContext, FontListsDrawBoldGlyphsAndAdvance) {
    HostView view;
    ASSERT_TRUE(view.ready);
    ASSERT_NE(view.context.fontListBase, 0u);
    EXPECT_EQ(drawText(view.context, " ").pixels, 0);
    const Ink narrow = drawText(view.context, "l");
    const Ink wide = drawText(view.context, "W");
    const Ink two = drawText(view.context, "Wl");
    EXPECT_TRUE(narrow.nearby && wide.nearby && two.nearby);
    EXPECT_GE(narrow.pixels, 12);            // a stem two pixels wide, six or more high
    EXPECT_GT(wide.right, 2 * narrow.right); // proportional
    EXPECT_GT(two.right, wide.right);        // the second glyph stands behind the first
    EXPECT_EQ(two.pixels, narrow.pixels + wide.pixels);
    EXPECT_GT(drawText(view.context, " W").right, wide.right); // a blank moves on
    // Upside down, only the stem of an "L" would stand on the base line.
    EXPECT_GE(drawText(view.context, "L").onBaseLine, 5);
    EXPECT_EQ(drawText(view.context, "'").onBaseLine, 0);
    for (const char* text : {"!", "~", "0", "g"})
        EXPECT_GT(drawText(view.context, text).pixels, 4) << text;
}

TEST(RenderContext, AViewTakesItsFontListsAlong) {
    HostView first;
    ASSERT_TRUE(first.ready);
    for (const bool windowGoesFirst : {false, true}) {
        unsigned lists = 0;
        {
            const TestWindow window(64, 48);
            auto second = std::make_unique<TestWindow>(64, 48);
            RenderContext view(second->handle(), 0u, first.folder.hostFile("space.ini").c_str());
            ASSERT_TRUE(view.initializeOpenGL());
            lists = view.fontListBase;
            if (windowGoesFirst)
                second.reset();
        }
        ASSERT_TRUE(makeCurrent(first.context.primary));
        deleteReleasedObjects();
        EXPECT_FALSE(glIsList(lists)) << windowGoesFirst;
    }
    ASSERT_TRUE(wglMakeCurrent(first.context.primary.dc, first.context.primary.glContext));
    EXPECT_TRUE(glIsList(first.context.fontListBase));
    EXPECT_TRUE(glIsList(first.context.fontListBase + kFontListCount - 1));
    {
        // A view that never got its context must not delete lists of others.
        const RenderContext unused(nullptr, 0, first.folder.hostFile("space.ini").c_str());
    }
    ASSERT_TRUE(wglMakeCurrent(first.context.primary.dc, first.context.primary.glContext));
    EXPECT_TRUE(glIsList(first.context.fontListBase));
}

} // namespace
} // namespace ogl::test
