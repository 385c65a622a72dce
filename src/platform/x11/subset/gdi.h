// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Device contexts, pixel formats, bitmaps and fonts of the Win32 subset.
#pragma once

#include "platform/x11/subset/base.h"

struct PIXELFORMATDESCRIPTOR {
    WORD nSize;
    WORD nVersion;
    DWORD dwFlags;
    BYTE iPixelType;
    BYTE cColorBits;
    BYTE cRedBits;
    BYTE cRedShift;
    BYTE cGreenBits;
    BYTE cGreenShift;
    BYTE cBlueBits;
    BYTE cBlueShift;
    BYTE cAlphaBits;
    BYTE cAlphaShift;
    BYTE cAccumBits;
    BYTE cAccumRedBits;
    BYTE cAccumGreenBits;
    BYTE cAccumBlueBits;
    BYTE cAccumAlphaBits;
    BYTE cDepthBits;
    BYTE cStencilBits;
    BYTE cAuxBuffers;
    BYTE iLayerType;
    BYTE bReserved;
    DWORD dwLayerMask;
    DWORD dwVisibleMask;
    DWORD dwDamageMask;
};
static_assert(sizeof(PIXELFORMATDESCRIPTOR) == 40);

inline constexpr DWORD PFD_DOUBLEBUFFER = 0x1;
inline constexpr DWORD PFD_DRAW_TO_WINDOW = 0x4;
inline constexpr DWORD PFD_SUPPORT_OPENGL = 0x20;
inline constexpr DWORD PFD_SUPPORT_COMPOSITION = 0x8000;
inline constexpr BYTE PFD_TYPE_RGBA = 0;
inline constexpr BYTE PFD_MAIN_PLANE = 0;

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};

struct DIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
};

#pragma pack(push, 2)
struct BITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)
static_assert(sizeof(BITMAPFILEHEADER) == 14);

inline constexpr DWORD BI_RGB = 0;
inline constexpr UINT DIB_RGB_COLORS = 0;

inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_BOLD = 700;
inline constexpr DWORD ANSI_CHARSET = 0;
inline constexpr DWORD OUT_TT_PRECIS = 4;
inline constexpr DWORD CLIP_DEFAULT_PRECIS = 0;
inline constexpr DWORD CLEARTYPE_QUALITY = 5;
inline constexpr DWORD DEFAULT_PITCH = 0;
inline constexpr DWORD FF_DONTCARE = 0;

// Device contexts and pixel formats -----------------------------------------------------------

/// The window's device context: one per window, counted. Null when there is no such window.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC handle);
/// The best pixel format (1, 2, ...) for a descriptor, 0 when none fits.
int ChoosePixelFormat(HDC dc, const PIXELFORMATDESCRIPTOR* descriptor);
/// The number of formats; fills `descriptor` when it is not null. 0 on failure.
int DescribePixelFormat(HDC dc, int number, UINT size, PIXELFORMATDESCRIPTOR* descriptor);
int GetPixelFormat(HDC handle);
/// A window takes one pixel format for its life.
BOOL SetPixelFormat(HDC handle, int format, const PIXELFORMATDESCRIPTOR* descriptor);
BOOL SwapBuffers(HDC handle);

// Objects -------------------------------------------------------------------------------------

/// A bitmap of 24 or 32 bits in plain memory, zeroed; other depths, compressions, palettes and
/// sections give null. `dc` is not used.
HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset);
/// Fills `object` from a bitmap: a DIBSECTION or a BITMAP, by `size`. The bytes written, else 0.
int GetObjectA(HGDIOBJ handle, int size, LPVOID object);
HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                  DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCSTR face);
/// Selects a font. The font selected before (never null for a live `dc`), null on failure.
HGDIOBJ SelectObject(HDC handle, HGDIOBJ object);
BOOL DeleteObject(HGDIOBJ handle);
