// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Two views whose modes change from call to call: whatever was drawn before, a picture is the one
// that a fresh view draws.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/dib.h"
#include "support/host_window.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace ogl::test {
namespace {

constexpr unsigned kFlags = kDrawFullQuality | kDrawShadows;

/// What the two places that are drawn into are.
enum class Places { HostWindows, OwnWindowBitmaps, MainAndSecondWindow };

/// A picture that a host asks for.
struct Request {
    int place = 0;
    int mode = kRenderModeDrawing;
    bool file = false;

    std::string name() const {
        const std::string where = file ? " in a file" : " in place " + std::to_string(place);
        return "mode " + std::to_string(mode) + where;
    }
};

/// Everything that a host asks for.
std::vector<Request> requests(Places places) {
    std::vector<Request> all;
    for (const int place : {0, 1}) {
        for (const int mode :
             {kRenderModeShadow, kRenderModePhoto, kRenderModeDrawing, kRenderModeEdges})
            all.push_back({place, mode});
        if (place == 0 || places != Places::MainAndSecondWindow)
            all.push_back({place, kRenderModeDrawing, true});
    }
    return all;
}

/// The view that draws it.
int viewOf(const Request& request, Places places) {
    return places == Places::MainAndSecondWindow ? 0 : request.place;
}

using Bytes = std::vector<uint8_t>;

/// A view of a scene of its own, in windows of the host or in the library's.
class View {
  public:
    View(Places places, int number) : width_(64 + 16 * number), height_(48 + 8 * number) {
        if (places != Places::OwnWindowBitmaps)
            window_.emplace(width_, height_);
        if (places == Places::MainAndSecondWindow)
            second_.emplace(kSecondWidth, kSecondHeight);
        context_ = library().create(handleOf(window_), 0, folder_.hostFile("space.ini").c_str());
        if (number == 1)
            scene_.raiseCamera();
    }
    ~View() {
        scene_.handBack();
        library().release(context_);
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    Bytes draw(const Request& request) {
        scene_.setMode(request.mode);
        SCENE* const record = scene_.record();
        if (request.file) {
            const std::string file = folder_.hostFile("picture.bmp");
            library().drawInFile(context_, record, kFlags, width_, height_, file.c_str());
            const std::string bytes = readFile(folder_.file("picture.bmp"));
            return {bytes.begin(), bytes.end()};
        }
        if (second_ && request.place == 1) {
            library().drawInWindow(context_, record, kFlags, 0, second_->handle(), nullptr);
            return readCurrentWindow();
        }
        const Dib picture(width_, height_);
        if (window_)
            library().drawInWindow(context_, record, kFlags, 1, handleOf(second_),
                                   picture.handle());
        else
            library().drawInDibSection(context_, record, kFlags, picture.handle());
        return picture.bytes();
    }

  private:
    static constexpr int kSecondWidth = 72;
    static constexpr int kSecondHeight = 40;

    static HWND handleOf(const std::optional<HostWindow>& window) {
        return window ? window->handle() : nullptr;
    }
    /// A frame leaves its context current; a swap leaves Mesa's buffers as they were.
    static Bytes readCurrentWindow() {
        Bytes pixels(size_t{kSecondWidth} * kSecondHeight * 4);
        glReadBuffer(GL_BACK);
        glReadPixels(0, 0, kSecondWidth, kSecondHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        return pixels;
    }

    int width_;
    int height_;
    TempFolder folder_;
    WallScene scene_;
    std::optional<HostWindow> window_;
    std::optional<HostWindow> second_;
    RenderContext* context_ = nullptr;
};

/// Every two of `count` symbols, a and b, as a row a b a b: there and back from either.
std::vector<size_t> thereAndBack(size_t count) {
    std::vector<size_t> row;
    for (size_t a = 0; a < count; ++a)
        for (size_t b = a + 1; b < count; ++b)
            row.insert(row.end(), {a, b, a, b});
    return row;
}

class ViewSequences : public testing::TestWithParam<Places> {};

TEST_P(ViewSequences, DrawWhatAFreshViewDraws) {
    const Places places = GetParam();
    const std::vector<Request> all = requests(places);
    std::vector<Bytes> fresh;
    for (const Request& request : all)
        fresh.push_back(View(places, viewOf(request, places)).draw(request));
    View first(places, 0);
    View second(places, 1);
    std::vector<std::string> drawn = {"nothing", "nothing"};
    for (const size_t step : thereAndBack(all.size())) {
        const Request& request = all[step];
        const Bytes picture = (viewOf(request, places) == 0 ? first : second).draw(request);
        drawn.push_back(request.name());
        ASSERT_EQ(picture, fresh[step])
            << *(drawn.end() - 3) << ", " << *(drawn.end() - 2) << ", " << drawn.back();
    }
}

INSTANTIATE_TEST_SUITE_P(Places, ViewSequences,
                         testing::Values(Places::HostWindows, Places::OwnWindowBitmaps,
                                         Places::MainAndSecondWindow));

} // namespace
} // namespace ogl::test
