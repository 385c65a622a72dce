// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// wglUseFontBitmapsA: glyphs of the selected font, one bit per pixel, as glBitmap display lists.
#include "platform/x11/device_context.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <string>
#include <vector>

namespace ogl::x11 {
namespace {

// The file and index of the installed face closest to a description.
struct FaceFile {
    std::string path;
    int index = 0;
};

FaceFile findFace(const FontDescription& font) {
    FaceFile found;
    // A configuration of our own: the shared one is never freed.
    FcConfig* const config = FcInitLoadConfigAndFonts();
    FcPattern* const wanted = config ? FcPatternCreate() : nullptr;
    if (!wanted)
        return found;
    if (!font.face.empty())
        FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(font.face.c_str()));
    FcPatternAddInteger(wanted, FC_WEIGHT, FcWeightFromOpenType(font.weight));
    FcPatternAddInteger(wanted, FC_SLANT, font.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result;
    FcPattern* const match = FcFontMatch(config, wanted, &result);
    FcChar8* path = nullptr;
    if (match && FcPatternGetString(match, FC_FILE, 0, &path) == FcResultMatch) {
        found.path = reinterpret_cast<const char*>(path);
        FcPatternGetInteger(match, FC_INDEX, 0, &found.index);
    }
    if (match)
        FcPatternDestroy(match);
    FcPatternDestroy(wanted);
    FcConfigDestroy(config);
    return found;
}

class Face {
  public:
    explicit Face(const FontDescription& font) {
        const FaceFile file = findFace(font);
        if (file.path.empty() || FT_Init_FreeType(&library_) != 0)
            return;
        if (FT_New_Face(library_, file.path.c_str(), file.index, &face_) == 0)
            setHeight(font.height);
    }
    ~Face() {
        if (face_)
            FT_Done_Face(face_);
        if (library_)
            FT_Done_FreeType(library_);
    }
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    explicit operator bool() const { return face_ != nullptr; }

    // The glyph in one bit per pixel, null when it cannot be drawn.
    FT_GlyphSlot render(FT_ULong character) const {
        const FT_Int32 flags = FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_MONOCHROME;
        return FT_Load_Char(face_, character, flags) == 0 ? face_->glyph : nullptr;
    }

  private:
    // A positive height is that of a line, from the ascender to the descender.
    void setHeight(int height) {
        const FT_Long line = face_->ascender - face_->descender;
        FT_Long pixels = height < 0 ? -height : height;
        if (height > 0 && line > 0)
            pixels = (pixels * face_->units_per_EM + line / 2) / line;
        FT_Set_Pixel_Sizes(face_, 0, static_cast<FT_UInt>(pixels > 0 ? pixels : 1));
    }

    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

// FreeType's top row comes first, glBitmap's bottom row.
std::vector<GLubyte> flipped(const FT_Bitmap& bitmap) {
    const size_t stride = (bitmap.width + 7) / 8;
    std::vector<GLubyte> rows(stride * bitmap.rows);
    for (size_t y = 0; y < bitmap.rows; ++y)
        for (size_t x = 0; x < stride; ++x)
            rows[(bitmap.rows - 1 - y) * stride + x] =
                bitmap.buffer[static_cast<ptrdiff_t>(y) * bitmap.pitch + static_cast<ptrdiff_t>(x)];
    return rows;
}

void drawGlyph(const FT_GlyphSlotRec& glyph) {
    const FT_Bitmap& bitmap = glyph.bitmap;
    const std::vector<GLubyte> rows = flipped(bitmap);
    const auto below = static_cast<GLfloat>(static_cast<int>(bitmap.rows) - glyph.bitmap_top);
    glBitmap(static_cast<GLsizei>(bitmap.width), static_cast<GLsizei>(bitmap.rows),
             static_cast<GLfloat>(-glyph.bitmap_left), below,
             static_cast<GLfloat>(glyph.advance.x) / 64.0f, 0.0f,
             rows.empty() ? nullptr : rows.data());
}

} // namespace
} // namespace ogl::x11

using namespace ogl::x11;

BOOL wglUseFontBitmapsA(HDC handle, DWORD first, DWORD count, DWORD listBase) {
    const DeviceContext* const dc = findDeviceContext(handle);
    if (!dc || !wglGetCurrentContext())
        return FALSE;
    const FontObject* const selected = findFont(dc->font);
    const Face face(selected ? selected->description : FontDescription{});
    if (!face) {
        sayOnce("wglUseFontBitmapsA: no scalable font is installed");
        return FALSE;
    }
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_UNPACK_LSB_FIRST, GL_FALSE);
    for (DWORD i = 0; i < count; ++i) {
        glNewList(listBase + i, GL_COMPILE);
        if (const FT_GlyphSlot glyph = face.render(first + i))
            drawGlyph(*glyph);
        glEndList();
    }
    glPopClientAttrib();
    return TRUE;
}
