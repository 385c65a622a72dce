// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/heads_up_display.h"

#include "fixed/overlays/bitmap_text.h"
#include "fixed/overlays/overlay_state.h"
#include "gpu/gl_debug.h"
#include "scene/record_views.h"

#include <cmath>
#include <string_view>

namespace ogl {

namespace {

constexpr int kLeft = 10; ///< pixels
constexpr int kFirstLine = 20;
constexpr int kLineHeight = 15;
constexpr size_t kLongestLine = 1024; ///< characters of a message's line
constexpr Vec3 kMessageColor{0.0f, 0.0f, 0.49803921f};
constexpr Vec3 kTextColor{0.0f, 0.0f, 0.0f};

/// Collects lines from the top downwards.
class LineWriter {
  public:
    void add(std::string text, Vec3 color) {
        lines_.push_back({std::move(text), y_, color});
        skip();
    }
    void skip() { y_ += kLineHeight; }
    int y() const { return y_; }
    std::vector<HudLine> take() { return std::move(lines_); }

  private:
    std::vector<HudLine> lines_;
    int y_ = kFirstLine;
};

/// Reads no further than the lines that the view shows: the text might not end.
void addMessage(LineWriter& lines, const uint8_t* text, int viewHeight) {
    std::string line;
    bool ended = text == nullptr;
    while (!ended && lines.y() < viewHeight + kLineHeight) {
        const char character = static_cast<char>(*text++);
        ended = character == 0;
        if (!ended && character != '\n' && line.size() < kLongestLine) {
            line.push_back(character);
            continue;
        }
        lines.add(std::exchange(line, {}), kMessageColor);
        if (!ended && character != '\n')
            line.push_back(character);
    }
    lines.skip();
}

int meshCount(const VIEW& view) {
    int count = 0;
    for (int k = 0; k < cacheEntryCount(view); ++k)
        count += cacheEntry(view, k)->meshBatches ? 1 : 0;
    return count;
}

std::string meshText(const VIEW& view) {
    if (view.previewMode != 0)
        return "Nb meshes = 1 (Global)";
    return "Nb meshes = " + std::to_string(meshCount(view));
}

} // namespace

std::string frameRateText(int64_t previousCounter, int64_t counter, int64_t frequency) {
    const double milliseconds =
        1000.0 * static_cast<double>(counter - previousCounter) / static_cast<double>(frequency);
    // A counter that runs backwards counts as one that stands still.
    const double rate = 1000.0 / (std::fmax(milliseconds, 0.0) + 0.01);
    const auto tenths = static_cast<int64_t>(std::floor(rate * 10.0 + 0.5));
    return "FPS = " + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::vector<HudLine> hudLines(const Renderer& renderer, const VIEW& view) {
    constexpr uint32_t kMessageFlags = kViewNoSelection | kViewMessage;
    const bool message = (view.flags & kMessageFlags) == kMessageFlags;
    const bool statistics = (renderer.scene->hudFlags & kHudStatistics) != 0;
    LineWriter lines;
    if (message)
        addMessage(lines, view.messageText.get(), renderer.height);
    if (message || statistics) {
        lines.add(frameRateText(renderer.previousCounter, renderer.counter, renderer.frequency),
                  kTextColor);
        lines.add(std::to_string(renderer.width) + " x " + std::to_string(renderer.height),
                  kTextColor);
    }
    if (statistics) {
        lines.add(meshText(view), kTextColor);
        const int materials = ListView<MATERIAL>(renderer.scene->geometry.materials).size();
        lines.add("Nb materials = " + std::to_string(materials), kTextColor);
    }
    return lines.take();
}

void drawHud(const Renderer& renderer, const VIEW& view) {
    const DebugGroup group("heads-up display");
    const PixelSpace pixels(renderer.width, renderer.height);
    for (const HudLine& line : hudLines(renderer, view))
        drawLabel(*renderer.fontLists, line.text, static_cast<float>(kLeft),
                  static_cast<float>(line.y), line.color);
    setOverlayState();
}

} // namespace ogl
