// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Windows and messages of the Win32 subset. A window handle is an X11 window id, so that a window
// of any toolkit can be handed over; only windows made here have a window procedure. Decorations
// belong to the window manager: a window's rectangle is its client area.
#pragma once

#include "platform/x11/subset/base.h"

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};

struct WNDCLASSEXA {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
    HICON hIconSm;
};

struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
};

inline constexpr UINT CS_VREDRAW = 0x1;
inline constexpr UINT CS_HREDRAW = 0x2;
inline constexpr UINT CS_OWNDC = 0x20;
inline constexpr int COLOR_WINDOW = 5;

inline constexpr DWORD WS_OVERLAPPED = 0;
inline constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00cf0000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000u);

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_SHOWDEFAULT = 10;

inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_USERDATA = -21;

inline constexpr UINT WM_NULL = 0x0;
inline constexpr UINT WM_CREATE = 0x1;
inline constexpr UINT WM_DESTROY = 0x2;
inline constexpr UINT WM_SIZE = 0x5;
inline constexpr UINT WM_PAINT = 0xf;
inline constexpr UINT WM_CLOSE = 0x10;
inline constexpr UINT WM_QUIT = 0x12;
inline constexpr UINT WM_ERASEBKGND = 0x14; // declared for shared window procedures; never sent
inline constexpr UINT WM_KEYDOWN = 0x100;
inline constexpr UINT WM_KEYUP = 0x101;
inline constexpr UINT WM_CHAR = 0x102;
inline constexpr UINT WM_MOUSEMOVE = 0x200;
inline constexpr UINT WM_LBUTTONDOWN = 0x201;
inline constexpr UINT WM_LBUTTONUP = 0x202;
inline constexpr UINT WM_RBUTTONDOWN = 0x204;
inline constexpr UINT WM_RBUTTONUP = 0x205;
inline constexpr UINT WM_MBUTTONDOWN = 0x207;
inline constexpr UINT WM_MBUTTONUP = 0x208;
inline constexpr UINT WM_MOUSEWHEEL = 0x20a;
inline constexpr UINT WM_USER = 0x400;
inline constexpr UINT WM_APP = 0x8000;

inline constexpr WPARAM MK_LBUTTON = 0x1;
inline constexpr WPARAM MK_RBUTTON = 0x2;
inline constexpr WPARAM MK_SHIFT = 0x4;
inline constexpr WPARAM MK_CONTROL = 0x8;
inline constexpr WPARAM MK_MBUTTON = 0x10;
inline constexpr int WHEEL_DELTA = 120;
#define GET_WHEEL_DELTA_WPARAM(wParam) (static_cast<short>(HIWORD(wParam)))
#define GET_KEYSTATE_WPARAM(wParam) (LOWORD(wParam))

inline constexpr UINT PM_NOREMOVE = 0;
inline constexpr UINT PM_REMOVE = 1;
inline constexpr UINT MB_OK = 0;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr int IDOK = 1;
#define IDC_ARROW MAKEINTRESOURCEA(32512)

// Window classes ------------------------------------------------------------------------------

/// 0 when the name is missing, has a class already, or the structure's size is wrong.
ATOM RegisterClassA(const WNDCLASSA* c);
ATOM RegisterClassExA(const WNDCLASSEXA* c);
/// FALSE when there is no such class or a window of it still exists.
BOOL UnregisterClassA(LPCSTR name, HINSTANCE instance);

// Windows -------------------------------------------------------------------------------------

/// Makes a window that belongs to the calling thread, and sends it WM_CREATE (-1 refuses it).
/// Null when the class is unknown, the procedure refuses, or there is no display.
HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     LPVOID parameter);
/// Sends WM_DESTROY and destroys the window. Only for windows of the calling thread.
BOOL DestroyWindow(HWND window);
BOOL ShowWindow(HWND window, int command);
BOOL UpdateWindow(HWND window);
BOOL InvalidateRect(HWND window, const RECT* area, BOOL erase);
BOOL ValidateRect(HWND window, const RECT* area);
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL AdjustWindowRect(RECT* area, DWORD style, BOOL menu);
BOOL GetClientRect(HWND window, RECT* area);
BOOL GetWindowRect(HWND window, RECT* area);
BOOL ClientToScreen(HWND window, POINT* point);
BOOL ScreenToClient(HWND window, POINT* point);
BOOL SetWindowTextA(HWND window, LPCSTR text);
BOOL IsWindow(HWND window);
BOOL IsWindowVisible(HWND window);
HWND GetActiveWindow();
LONG_PTR GetWindowLongPtrA(HWND window, int index);
LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);
HWND SetCapture(HWND window);
BOOL ReleaseCapture();
BOOL GetCursorPos(POINT* point);

// Messages ------------------------------------------------------------------------------------

/// The calling thread's next message: FALSE for WM_QUIT, -1 without a display. The filters must be
/// null and 0.
BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);
BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageA(const MSG* message);
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostThreadMessageA(DWORD threadId, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Shows `text` with an OK button and waits for it; without a desktop writes it to standard error.
/// Returns IDOK.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
