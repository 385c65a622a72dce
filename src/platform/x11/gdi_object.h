// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace ogl::x11 {

/// What a font handle asks for. `height` as Windows has it: > 0 of a whole line, < 0 of the
/// characters, pixels.
struct FontDescription {
    int height = 16;
    int weight = FW_NORMAL;
    bool italic = false;
    std::string face;
};

enum class GdiKind : uint32_t { Bitmap = 1, Font = 2 };

/// Every object starts like this. Program and library may each hold a copy of this layer and pass
/// each other's bitmaps, so what a handle means is written into the object itself.
struct GdiObject {
    static constexpr char kMark[8] = {'o', 'g', 'l', '-', 'g', 'd', 'i', '1'};
    char mark[8];
    GdiKind kind;
};

/// A DIB section: the description, and the pixels in plain memory.
struct BitmapObject {
    GdiObject object;
    BITMAPINFOHEADER header;
    LONG strideBytes;
    void* pixels; // from calloc
};

struct FontObject {
    GdiObject object;
    FontDescription description;
};

/// The object behind a handle, null when it is none of this kind.
BitmapObject* findBitmap(HGDIOBJ handle);
FontObject* findFont(HGDIOBJ handle);

} // namespace ogl::x11
