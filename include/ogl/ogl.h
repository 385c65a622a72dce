// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
/// @file
/// The functions that the library exports. All are called from one host thread.
#pragma once

#include "ogl/host_records.h"
#include "ogl/platform_types.h"

namespace ogl {
class RenderContext;
}

extern "C" {

/// Makes a view. `window`: the host's window, or null for a hidden window of the library's own
/// (shared by all views made so). `flags`: kCreateInputDevices or 0. `iniPath`: path of the
/// configuration file; "ogl.log" is written into its folder. An empty path reads "space.ini" of
/// the current directory. Returns null when no OpenGL context with the required capabilities can
/// be made; the log says why.
ogl::RenderContext* OGL_CALL d3_Create(HWND window, unsigned flags, const char* iniPath);

/// Destroys a view and the renderer that all views share. Null is allowed.
void OGL_CALL d3_Release(ogl::RenderContext* ctx);

/// Draws a frame into the view's window (`drawMain` non-zero), and into `secondWindow` when that
/// is not null. `captureBitmap` (a DIB section of 24 or 32 bits, or null) receives the main
/// window's frame, bottom row first, clipped to the bitmap's size. Returns 1.
int OGL_CALL d3_DrawInWindow(ogl::RenderContext* ctx, ogl::SCENE* scene, unsigned drawFlags,
                             int drawMain, HWND secondWindow, HBITMAP captureBitmap);

/// Draws a frame into a DIB section of 24 or 32 bits, bottom row first. Returns 1.
int OGL_CALL d3_DrawInDibSection(ogl::RenderContext* ctx, ogl::SCENE* scene, unsigned drawFlags,
                                 HBITMAP dib);

/// Draws a frame of `width` x `height` pixels with the shadowed forward renderer into a BMP file of
/// 24 bits per pixel, lit by the sun without shadows. The file stores the frame's top row first
/// under a positive height: programs that read it as usual show it upside down. With the library's
/// own window that window takes the size; in a host's window the host keeps the size within it,
/// pixels outside are not defined. A path that cannot be written, and a size without pixels or
/// beyond what the driver draws at once, leave no file and an entry in the log. Leaves the view's
/// OpenGL context current. Returns 1.
int OGL_CALL d3_DrawInFile(ogl::RenderContext* ctx, ogl::SCENE* scene, unsigned drawFlags,
                           int width, int height, const char* fileName);

/// The objects under pixel (`x`, `y`) of a view of `viewWidth` x `viewHeight` pixels, nearest
/// first: `*result` receives a global-memory block of i32 object numbers that the host frees with
/// GlobalFree, `*hitCount` their number. Returns 1.
int OGL_CALL d3_GetPickedObjects(ogl::SCENE* scene, int viewWidth, int viewHeight, int x, int y,
                                 int** result, int* hitCount);

/// Writes the scene as a JavaScript document. Returns 0 and leaves no file when it cannot be
/// opened, else 1: errors while it is written, on a full disk for one, are not noticed.
int OGL_CALL d3_ExportJS(ogl::SCENE* scene, const char* path, int viewWidth, int viewHeight);

/// Always returns 0; textures are made from memory.
int OGL_CALL d3_CreateTextureFromFile();

/// Makes a texture image from the `size` bytes of a file at `data`; null for what it cannot read.
/// `width` and `height` become the image's, whatever the file's own are; an image with too few
/// pixels for them shows no texture. Freed with d3_ReleasePointer, kReleaseTextureImage. `ctx` is
/// ignored.
ogl::TextureImage* OGL_CALL d3_CreateTextureFromFileInMemory(ogl::RenderContext* ctx,
                                                             const void* data, int size, int usage,
                                                             int fileType, int width, int height,
                                                             int bitsPerPixel);

/// Frees what the 4-byte address at `pointer` (a slot of a host record) names, sets the slot to
/// null and marks the scene as changed. `kind`: kRelease...; any other kind frees nothing. An
/// address that the library did not hand out is not freed. `ctx` is ignored.
void OGL_CALL d3_ReleasePointer(ogl::RenderContext* ctx, void** pointer, int kind);

/// Fills 272 bytes at `state`: 16 bytes of mouse state (DIMOUSESTATE), 256 bytes of keyboard state
/// by DirectInput key code. Returns 1, or 0 when a device is missing or cannot be read.
int OGL_CALL di_GetState(ogl::RenderContext* ctx, void* state);
}
