// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/bitmap_text.h"

#include "fixed/overlays/overlay_state.h"
#include "platform/bitmap_font.h"
#include "platform/win32.h"

#include <algorithm>
#include <string>

namespace ogl {

namespace {

/// Lists outside the font's may be anything: another view's glyphs, for one.
bool hasGlyph(char character) {
    const int code = static_cast<unsigned char>(character);
    return code >= kFontFirstCharacter && code < kFontFirstCharacter + kFontListCount;
}

} // namespace

void drawText(unsigned fontLists, std::string_view text) {
    std::string drawn;
    std::copy_if(text.begin(), text.end(), std::back_inserter(drawn), hasGlyph);
    if (fontLists == 0 || drawn.empty())
        return;
    glPushAttrib(GL_LIST_BIT);
    glListBase(fontLists - kFontFirstCharacter);
    glCallLists(static_cast<GLsizei>(drawn.size()), GL_UNSIGNED_BYTE, drawn.data());
    glPopAttrib();
}

void drawLabel(unsigned fontLists, std::string_view text, float x, float y, Vec3 color) {
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glLineWidth(2.0f);
    setColor(color);
    glRasterPos2f(x, y);
    drawText(fontLists, text);
    glRasterPos2f(0.0f, 0.0f);
}

} // namespace ogl
