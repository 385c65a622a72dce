// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/bitmap_font.h"

namespace ogl {

namespace {

/// How far the list moves the raster position, pixels.
float advanceOf(unsigned list) {
    float before[4];
    float after[4];
    glWindowPos2i(0, 0);
    glGetFloatv(GL_CURRENT_RASTER_POSITION, before);
    glCallList(list);
    glGetFloatv(GL_CURRENT_RASTER_POSITION, after);
    return after[0] - before[0];
}

/// Mesa drops an empty bitmap from a list as out of memory, and the advance with it: on Wine, whose
/// blank is one, words run together. A blank of such faces is as wide as a small l.
void repairBlank(unsigned listBase) {
    glGetError();
    const unsigned blank = listBase + ' ' - kFontFirstCharacter;
    if (advanceOf(blank) > 0.0f)
        return;
    const float advance = advanceOf(listBase + 'l' - kFontFirstCharacter);
    glNewList(blank, GL_COMPILE);
    constexpr GLubyte kNoInk = 0;
    glBitmap(1, 1, 0.0f, 0.0f, advance, 0.0f, &kNoInk);
    glEndList();
}

} // namespace

bool buildBitmapFont(HDC dc, unsigned listBase) {
    constexpr int kHeightPixels = 16;
    const HFONT font = CreateFontA(kHeightPixels, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE,
                                   ANSI_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                                   CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, "Helvetica");
    const HGDIOBJ previous = SelectObject(dc, font);
    const BOOL built = wglUseFontBitmapsA(dc, kFontFirstCharacter, kFontListCount, listBase);
    SelectObject(dc, previous);
    DeleteObject(font);
    if (built)
        repairBlank(listBase);
    return built != FALSE;
}

} // namespace ogl
