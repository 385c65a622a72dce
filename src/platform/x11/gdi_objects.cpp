// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// DIB sections and fonts.
#include "platform/x11/device_context.h"

#include <cstring>
#include <new>

using namespace ogl::x11;

namespace ogl::x11 {
namespace {

GdiObject makeObject(GdiKind kind) {
    GdiObject object{};
    std::memcpy(object.mark, GdiObject::kMark, sizeof object.mark);
    object.kind = kind;
    return object;
}

void* find(HGDIOBJ handle, GdiKind kind) {
    const auto address = reinterpret_cast<uintptr_t>(handle);
    if (address < 65536 || address % alignof(GdiObject) != 0)
        return nullptr;
    const auto* object = static_cast<const GdiObject*>(handle);
    const bool matches = std::memcmp(object->mark, GdiObject::kMark, sizeof object->mark) == 0 &&
                         object->kind == kind;
    return matches ? handle : nullptr;
}

bool supported(const BITMAPINFOHEADER& header) {
    return header.biSize == sizeof header && header.biWidth > 0 && header.biHeight > 0 &&
           header.biPlanes == 1 && (header.biBitCount == 24 || header.biBitCount == 32) &&
           header.biCompression == BI_RGB;
}

} // namespace

BitmapObject* findBitmap(HGDIOBJ handle) {
    return static_cast<BitmapObject*>(find(handle, GdiKind::Bitmap));
}
FontObject* findFont(HGDIOBJ handle) {
    return static_cast<FontObject*>(find(handle, GdiKind::Font));
}

} // namespace ogl::x11

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD) {
    if (bits)
        *bits = nullptr;
    if (!info)
        return nullptr;
    if (!supported(info->bmiHeader) || usage != DIB_RGB_COLORS || section) {
        sayOnce("CreateDIBSection: only bottom-up bitmaps of 24 or 32 bits are supported");
        return nullptr;
    }
    const BITMAPINFOHEADER& header = info->bmiHeader;
    const int64_t stride = (int64_t{header.biWidth} * header.biBitCount + 31) / 32 * 4;
    if (stride > INT32_MAX / header.biHeight)
        return nullptr;
    const int64_t bytes = stride * header.biHeight;
    void* const pixels = std::calloc(static_cast<size_t>(bytes), 1);
    if (!pixels)
        return nullptr;
    auto* bitmap = new (std::nothrow)
        BitmapObject{makeObject(GdiKind::Bitmap), header, static_cast<LONG>(stride), pixels};
    if (!bitmap) {
        std::free(pixels);
        return nullptr;
    }
    bitmap->header.biSizeImage = static_cast<DWORD>(bytes);
    if (bits)
        *bits = pixels;
    return reinterpret_cast<HBITMAP>(bitmap);
}

int GetObjectA(HGDIOBJ handle, int size, LPVOID object) {
    const BitmapObject* const bitmap = findBitmap(handle);
    if (!bitmap)
        return 0;
    if (!object)
        return sizeof(BITMAP);
    const BITMAPINFOHEADER& header = bitmap->header;
    DIBSECTION section{};
    section.dsBm = {0, header.biWidth,    header.biHeight, bitmap->strideBytes,
                    1, header.biBitCount, bitmap->pixels};
    section.dsBmih = header;
    if (size >= static_cast<int>(sizeof section)) {
        std::memcpy(object, &section, sizeof section);
        return sizeof section;
    }
    if (size < static_cast<int>(sizeof section.dsBm))
        return 0;
    std::memcpy(object, &section.dsBm, sizeof section.dsBm);
    return sizeof section.dsBm;
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD, DWORD, DWORD, DWORD,
                  LPCSTR face) {
    if (width || escapement || orientation || underline || strikeOut || charSet != ANSI_CHARSET)
        sayOnce("CreateFontA: widths, rotated, underlined and struck-out fonts, and character sets "
                "other than ANSI are not supported");
    auto* font = new (std::nothrow) FontObject{
        makeObject(GdiKind::Font),
        {height ? height : 16, weight ? weight : FW_NORMAL, italic != 0, face ? face : ""}};
    return reinterpret_cast<HFONT>(font);
}

HGDIOBJ SelectObject(HDC handle, HGDIOBJ object) {
    DeviceContext* const dc = findDeviceContext(handle);
    if (!dc || !findFont(object))
        return nullptr;
    static const HFONT systemFont =
        CreateFontA(16, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, OUT_TT_PRECIS,
                    CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, "");
    const HGDIOBJ before = dc->font ? dc->font : static_cast<HGDIOBJ>(systemFont);
    dc->font = object;
    return before;
}

BOOL DeleteObject(HGDIOBJ handle) {
    if (BitmapObject* const bitmap = findBitmap(handle)) {
        std::free(bitmap->pixels);
        bitmap->object = {};
        delete bitmap;
        return TRUE;
    }
    if (FontObject* const font = findFont(handle)) {
        font->object = {};
        delete font;
        return TRUE;
    }
    return FALSE;
}
