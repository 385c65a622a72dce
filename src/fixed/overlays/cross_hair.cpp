// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/overlays/overlay_state.h"

namespace ogl {

namespace {

constexpr float kArm = 10.0f; ///< pixels

} // namespace

void drawCrossHair(const VIEW& view, HWND window) {
    POINT origin{};
    ClientToScreen(window, &origin);
    const PIXEL cursor = (view.flags & kViewCursorB) != 0 ? view.cursorB : view.cursorA;
    const float x = static_cast<float>(cursor.x) - static_cast<float>(origin.x);
    const float y = static_cast<float>(cursor.y) - static_cast<float>(origin.y);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE_MINUS_DST_COLOR, GL_SRC_ALPHA);
    glColor4f(1.0f, 1.0f, 1.0f, 0.7f);
    glBegin(GL_LINES);
    glVertex2f(x + kArm, y);
    glVertex2f(x - kArm, y);
    glVertex2f(x, y + kArm);
    glVertex2f(x, y - kArm);
    glEnd();
    setColor({1.0f, 1.0f, 1.0f});
    glDisable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

} // namespace ogl
