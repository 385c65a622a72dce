// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/overlays/bitmap_text.h"
#include "fixed/overlays/overlay_state.h"
#include "platform/win32.h"

#include <algorithm>
#include <string_view>

namespace ogl {

namespace {

constexpr float kCharacterWidth = 7.0f; ///< pixels
constexpr float kMargin = 5.0f;
constexpr float kHeightAbove = 15.0f; ///< of the box above the text's base line

/// The text up to its end or, without one, that of its field.
std::string_view tooltipText(const VIEW& view) {
    const uint8_t* first = view.tooltipText;
    const uint8_t* last = std::find(first, first + sizeof view.tooltipText, uint8_t{0});
    return {reinterpret_cast<const char*>(first), static_cast<size_t>(last - first)};
}

void drawFrame(float left, float top, float right, float bottom) {
    glBegin(GL_LINES);
    setColor({0.75f, 0.75f, 0.75f});
    glVertex2f(left, bottom);
    glVertex2f(left, top);
    glVertex2f(left, top);
    glVertex2f(right, top);
    setColor({0.0f, 0.0f, 0.0f});
    glVertex2f(right, top);
    glVertex2f(right, bottom);
    glVertex2f(right, bottom);
    glVertex2f(left, bottom);
    glEnd();
}

} // namespace

void drawTooltip(const VIEW& view, unsigned fontLists) {
    const std::string_view text = tooltipText(view);
    if (text.empty())
        return;
    const PIXEL place = view.tooltip;
    const auto x = static_cast<float>(place.x);
    const auto y = static_cast<float>(place.y);
    const float right = x + kCharacterWidth * static_cast<float>(text.size()) + kMargin;
    setColor({1.0f, 1.0f, 0.75f});
    glRectf(x - kMargin, y + kMargin, right, y - kHeightAbove);
    drawFrame(x - kMargin, y - kHeightAbove, right, y + kMargin);
    setColor({0.0f, 0.0f, 0.0f});
    glRasterPos2f(x, y);
    drawText(fontLists, text);
}

} // namespace ogl
