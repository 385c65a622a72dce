// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The library's functions as a host declares them that has nothing but their description.
#pragma once

#include <cstdint>

#if defined(__i386__)
#define RAW_CDECL __attribute__((cdecl))
#define RAW_STDCALL __attribute__((stdcall))
#define RAW_THISCALL __attribute__((thiscall))
#else
#define RAW_CDECL
#define RAW_STDCALL
#define RAW_THISCALL
#endif

struct RawCalls {
    void*(RAW_CDECL* create)(void* window, unsigned flags, const char* iniPath);
    void(RAW_CDECL* release)(void* view);
    int(RAW_CDECL* drawInWindow)(void* view, void* scene, unsigned drawFlags, int drawMain,
                                 void* secondWindow, void* captureBitmap);
    int(RAW_CDECL* drawInDibSection)(void* view, void* scene, unsigned drawFlags, void* dib);
    int(RAW_CDECL* drawInFile)(void* view, void* scene, unsigned drawFlags, int width, int height,
                               const char* fileName);
    int(RAW_CDECL* pickedObjects)(void* scene, int viewWidth, int viewHeight, int x, int y,
                                  int32_t** result, int* count);
    int(RAW_CDECL* exportJS)(void* scene, const char* path, int viewWidth, int viewHeight);
    int(RAW_CDECL* textureFromFile)();
    void*(RAW_CDECL* textureFromMemory)(void* view, const void* data, int size, int usage,
                                        int fileType, int width, int height, int bitsPerPixel);
    void(RAW_CDECL* releasePointer)(void* view, void* slot, int kind);
    int(RAW_CDECL* inputState)(void* view, void* state);
    void(RAW_STDCALL* listCreate)(void* list, int growBy, int elementSize);
    void(RAW_STDCALL* vlistCreate)(void* list, int growBy, int itemSize, int itemsPerCluster);
    void*(RAW_STDCALL* useClusterIndex)(void* list, void* index, int32_t cluster);
    void*(RAW_STDCALL* useClusterCount)(void* list, int32_t cluster, int32_t* count);
    void*(RAW_STDCALL* usePath)(void* scene, int32_t path, int32_t* count);
    void*(RAW_THISCALL* assignCursor)(void* self, const void* source);
};

/// Looks all seventeen up; returns the name of the first one that is missing, or null.
const char* findRawCalls(RawCalls& calls);

/// The calling function's stack pointer.
__attribute__((always_inline)) inline uintptr_t stackPointer() {
    uintptr_t value;
#if defined(__i386__)
    asm volatile("movl %%esp, %0" : "=r"(value));
#else
    asm volatile("movq %%rsp, %0" : "=r"(value));
#endif
    return value;
}
