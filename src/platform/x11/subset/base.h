// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Base types of the Win32 subset: 32-bit integers stay 32 bits wide, handles are distinct types.
#pragma once

#include <GL/glew.h>

#include <GL/glu.h>
#include <cstddef>
#include <cstdint>

#ifndef WINAPI
#define WINAPI
#endif
#ifndef CALLBACK
#define CALLBACK
#endif
#ifndef __stdcall
#define __stdcall
#endif
#ifndef __thiscall
#define __thiscall
#endif
#ifndef APIENTRY
#define APIENTRY
#endif

using BOOL = int;
using BYTE = uint8_t;
using WORD = uint16_t;
using ATOM = uint16_t;
using SHORT = int16_t;
using INT = int;
using UINT = unsigned int;
using LONG = int32_t;
using ULONG = uint32_t;
using DWORD = uint32_t;
using LONGLONG = int64_t;
using HRESULT = int32_t;
using SIZE_T = size_t;
using INT_PTR = intptr_t;
using UINT_PTR = uintptr_t;
using LONG_PTR = intptr_t;
using ULONG_PTR = uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using LPVOID = void*;
using LPCVOID = const void*;
using LPDWORD = DWORD*;
using LPSTR = char*;
using LPCSTR = const char*;

using HANDLE = void*;
using HGLOBAL = HANDLE;
using HGDIOBJ = void*;
typedef struct HBITMAP__* HBITMAP;
typedef struct HBRUSH__* HBRUSH;
typedef struct HDC__* HDC;
typedef struct HFONT__* HFONT;
typedef struct HGLRC__* HGLRC;
typedef struct HICON__* HICON;
typedef struct HINSTANCE__* HINSTANCE;
typedef struct HMENU__* HMENU;
typedef struct HRSRC__* HRSRC;
typedef struct HWND__* HWND;
using HCURSOR = HICON;
using HMODULE = HINSTANCE;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

#define LOWORD(value) (static_cast<WORD>(static_cast<ULONG_PTR>(value) & 0xffffu))
#define HIWORD(value) (static_cast<WORD>((static_cast<ULONG_PTR>(value) >> 16) & 0xffffu))
#define MAKELONG(low, high)                                                                        \
    (static_cast<LONG>(static_cast<DWORD>(static_cast<WORD>(low)) |                                \
                       (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define MAKELPARAM(low, high)                                                                      \
    (static_cast<LPARAM>(static_cast<DWORD>(static_cast<WORD>(low)) |                              \
                         (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define MAKEINTRESOURCEA(number)                                                                   \
    (reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(number))))
#define IS_INTRESOURCE(name) ((reinterpret_cast<ULONG_PTR>(name) >> 16) == 0)

#define SUCCEEDED(result) (static_cast<HRESULT>(result) >= 0)
#define FAILED(result) (static_cast<HRESULT>(result) < 0)
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002u);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);

struct POINT {
    LONG x;
    LONG y;
};

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};

struct GUID {
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    uint8_t Data4[8];
};
using IID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;

inline bool operator==(const GUID& a, const GUID& b) {
    bool same = a.Data1 == b.Data1 && a.Data2 == b.Data2 && a.Data3 == b.Data3;
    for (int i = 0; i < 8; ++i)
        same = same && a.Data4[i] == b.Data4[i];
    return same;
}
