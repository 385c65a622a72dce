// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the raw host asks of the system. Knows nothing of the library.
#pragma once

/// Loads ogl.dll; false when it cannot be.
bool loadOgl();
void unloadOgl();

/// The library's function: by the decorated name where names are decorated, else by the plain one.
void* entry(const char* decorated, const char* plain);

/// A bottom-up bitmap of 24 bits per pixel.
void* makeBitmap(int width, int height, unsigned char*& pixels);
void deleteBitmap(void* bitmap);

/// Frees a block of global memory; false when it is none.
bool freeBlock(void* block);
