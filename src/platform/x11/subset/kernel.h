// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Kernel services of the Win32 subset: threads, time, global memory, modules and resources.
#pragma once

#include "platform/x11/subset/base.h"

// Threads -------------------------------------------------------------------------------------

using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID);
struct SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

inline constexpr DWORD INFINITE = 0xffffffffu;
inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_TIMEOUT = 258;
inline constexpr DWORD WAIT_FAILED = 0xffffffffu;
inline constexpr DWORD STILL_ACTIVE = 259;

/// Starts a thread. `security` and `flags` must be null and 0; other values give null.
/// The handle is closed with CloseHandle, which does not end the thread.
HANDLE CreateThread(LPSECURITY_ATTRIBUTES security, SIZE_T stackSize, LPTHREAD_START_ROUTINE start,
                    LPVOID parameter, DWORD flags, LPDWORD threadId);
BOOL GetExitCodeThread(HANDLE handle, LPDWORD exitCode);
/// Waits until the thread has ended: WAIT_OBJECT_0, WAIT_TIMEOUT or WAIT_FAILED.
DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);
BOOL CloseHandle(HANDLE handle);
DWORD GetCurrentThreadId();
void Sleep(DWORD milliseconds);

// Time and version ----------------------------------------------------------------------------

BOOL QueryPerformanceCounter(LARGE_INTEGER* count);
BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency);

struct OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    char szCSDVersion[128];
};
/// Reports version 6.1, the level of the interface that this subset follows.
BOOL GetVersionExA(OSVERSIONINFOA* version);

// Global memory -------------------------------------------------------------------------------

inline constexpr UINT GMEM_FIXED = 0x0;
inline constexpr UINT GMEM_MOVEABLE = 0x2;
inline constexpr UINT GMEM_ZEROINIT = 0x40;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
inline constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;

/// A block of GMEM_FIXED memory is its own handle; the address of a GMEM_MOVEABLE block comes from
/// GlobalLock. Null when there is no memory.
HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
LPVOID GlobalLock(HGLOBAL memory);
BOOL GlobalUnlock(HGLOBAL memory);
/// The size asked for, 0 for a handle that is not a live block.
SIZE_T GlobalSize(HGLOBAL memory);
/// Null on success, `memory` itself when it is no live block.
HGLOBAL GlobalFree(HGLOBAL memory);

// Modules and resources -----------------------------------------------------------------------

using FARPROC = INT_PTR(WINAPI*)();

inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;
inline constexpr int MAX_PATH = 260;

/// The program for null, the library that holds this code for "ogl.dll" (the program when it is
/// linked in), else a module that is loaded already; null when there is none.
HMODULE GetModuleHandleA(LPCSTR name);
DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size);
/// Loads "name", or for "thing.dll" the file libthing.so or thing.so: beside the library, beside
/// the program, then along the loader's search path.
HMODULE LoadLibraryA(LPCSTR name);
FARPROC GetProcAddress(HMODULE module, LPCSTR name);
BOOL FreeLibrary(HMODULE module);

/// Resources of the module that holds this code; any other module has none.
HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type);
DWORD SizeofResource(HMODULE module, HRSRC handle);
HGLOBAL LoadResource(HMODULE module, HRSRC handle);
LPVOID LockResource(HGLOBAL data);

/// Called, when the program or library that holds this code defines it, as it is loaded and
/// unloaded, with DLL_PROCESS_ATTACH and DLL_PROCESS_DETACH.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);
