// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/bitmap_font.h"

namespace ogl {

bool buildBitmapFont(HDC dc, unsigned& listBase) {
    listBase = glGenLists(kFontListCount);
    constexpr int kHeightPixels = 16;
    const HFONT font = CreateFontA(kHeightPixels, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE,
                                   ANSI_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                                   CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, "Helvetica");
    const HGDIOBJ previous = SelectObject(dc, font);
    const BOOL built = wglUseFontBitmapsA(dc, kFontFirstCharacter, kFontListCount, listBase);
    SelectObject(dc, previous);
    DeleteObject(font);
    return built != FALSE;
}

} // namespace ogl
