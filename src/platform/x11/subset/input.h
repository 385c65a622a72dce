// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// DirectInput 8 of the Win32 subset: the immediate state of the system keyboard and mouse.
#pragma once

#include "platform/x11/subset/base.h"

#ifndef DIRECTINPUT_VERSION
#define DIRECTINPUT_VERSION 0x0800
#endif

inline constexpr HRESULT DI_OK = 0;
inline constexpr HRESULT DIERR_INVALIDPARAM = E_INVALIDARG;
inline constexpr HRESULT DIERR_DEVICENOTREG = static_cast<HRESULT>(0x80040154u);
inline constexpr HRESULT DIERR_OLDDIRECTINPUTVERSION = static_cast<HRESULT>(0x8007047eu);
inline constexpr HRESULT DIERR_NOTACQUIRED = static_cast<HRESULT>(0x8007000cu);
inline constexpr HRESULT DIERR_INPUTLOST = static_cast<HRESULT>(0x8007001eu);
inline constexpr HRESULT DIERR_UNSUPPORTED = static_cast<HRESULT>(0x80004001u);

inline constexpr DWORD DISCL_EXCLUSIVE = 0x1;
inline constexpr DWORD DISCL_NONEXCLUSIVE = 0x2;
inline constexpr DWORD DISCL_FOREGROUND = 0x4;
inline constexpr DWORD DISCL_BACKGROUND = 0x8;

extern const GUID GUID_SysMouse;
extern const GUID GUID_SysKeyboard;
extern const IID IID_IDirectInput8A;

/// Relative movement since the last reading, pixels; buttons left, right, middle: high bit set
/// while pressed. The X server keeps no wheel position: lZ is always 0.
struct DIMOUSESTATE {
    LONG lX;
    LONG lY;
    LONG lZ;
    BYTE rgbButtons[4];
};

/// Only the two predefined formats are known; they are told apart by address.
struct DIDATAFORMAT {
    DWORD dwSize;
    DWORD dwDataSize;
};
using LPCDIDATAFORMAT = const DIDATAFORMAT*;
extern const DIDATAFORMAT c_dfDIKeyboard;
extern const DIDATAFORMAT c_dfDIMouse;

struct IUnknown {
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

  protected:
    ~IUnknown() = default;
};
using LPUNKNOWN = IUnknown*;

struct IDirectInputDevice8A : IUnknown {
    virtual HRESULT SetDataFormat(LPCDIDATAFORMAT format) = 0;
    virtual HRESULT SetCooperativeLevel(HWND window, DWORD flags) = 0;
    virtual HRESULT Acquire() = 0;
    virtual HRESULT Unacquire() = 0;
    virtual HRESULT GetDeviceState(DWORD size, LPVOID state) = 0;

  protected:
    ~IDirectInputDevice8A() = default;
};
using LPDIRECTINPUTDEVICE8A = IDirectInputDevice8A*;

struct IDirectInput8A : IUnknown {
    virtual HRESULT CreateDevice(REFGUID guid, LPDIRECTINPUTDEVICE8A* device, LPUNKNOWN outer) = 0;

  protected:
    ~IDirectInput8A() = default;
};
using LPDIRECTINPUT8A = IDirectInput8A*;

HRESULT DirectInput8Create(HINSTANCE instance, DWORD version, REFIID interfaceId, LPVOID* result,
                           LPUNKNOWN outer);
