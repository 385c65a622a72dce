// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "ogl/ogl.h"

#include "api/draw_calls.h"
#include "api/export_call.h"
#include "api/guard.h"
#include "api/pick_call.h"
#include "api/view_calls.h"
#include "fixed/textures/texture_file.h"
#include "platform/win32.h"
#include "render/render_context.h"

using namespace ogl;

extern "C" {

RenderContext* OGL_CALL d3_Create(HWND window, unsigned flags, const char* iniPath) {
    return guarded<RenderContext*>(
        nullptr, [&] { return createView(window, flags, iniPath != nullptr ? iniPath : ""); });
}

void OGL_CALL d3_Release(RenderContext* ctx) {
    guarded(0, [&] {
        releaseView(ctx);
        return 0;
    });
}

int OGL_CALL d3_DrawInWindow(RenderContext* ctx, SCENE* scene, unsigned drawFlags, int drawMain,
                             HWND secondWindow, HBITMAP captureBitmap) {
    return guarded(1, [&] {
        if (ctx != nullptr && scene != nullptr)
            drawInWindow(*ctx, *scene, drawFlags, {drawMain != 0, secondWindow, captureBitmap});
        return 1;
    });
}

int OGL_CALL d3_DrawInDibSection(RenderContext* ctx, SCENE* scene, unsigned drawFlags,
                                 HBITMAP dib) {
    return guarded(1, [&] {
        if (ctx != nullptr && scene != nullptr)
            drawInDibSection(*ctx, *scene, drawFlags, dib);
        return 1;
    });
}

int OGL_CALL d3_DrawInFile(RenderContext* ctx, SCENE* scene, unsigned drawFlags, int width,
                           int height, const char* fileName) {
    return guarded(1, [&] {
        if (ctx != nullptr && scene != nullptr && fileName != nullptr)
            drawInFile(*ctx, *scene, drawFlags, width, height, fileName);
        return 1;
    });
}

int OGL_CALL d3_GetPickedObjects(SCENE* scene, int viewWidth, int viewHeight, int x, int y,
                                 int** result, int* hitCount) {
    return guarded(1, [&] {
        handOverPicked(scene, {viewWidth, viewHeight, x, y}, result, hitCount);
        return 1;
    });
}

int OGL_CALL d3_ExportJS(SCENE* scene, const char* path, int width, int height) {
    return guarded(0, [&] {
        return scene != nullptr && path != nullptr ? exportDocument(*scene, path, width, height)
                                                   : 0;
    });
}

int OGL_CALL d3_CreateTextureFromFile() {
    return 0;
}

TextureImage* OGL_CALL d3_CreateTextureFromFileInMemory(RenderContext*, const void* data, int size,
                                                        int usage, int fileType, int width,
                                                        int height, int bitsPerPixel) {
    return guarded<TextureImage*>(nullptr, [&]() -> TextureImage* {
        if (data == nullptr || size <= 0)
            return nullptr;
        return makeTextureImage(
            {.bytes = {static_cast<const uint8_t*>(data), static_cast<size_t>(size)},
             .type = fileType,
             .usage = usage,
             .width = width,
             .height = height,
             .bitsPerPixel = bitsPerPixel});
    });
}

void OGL_CALL d3_ReleasePointer(RenderContext*, void** pointer, int kind) {
    guarded(0, [&] {
        releaseParked(pointer, kind);
        return 0;
    });
}

int OGL_CALL di_GetState(RenderContext* ctx, void* state) {
    return guarded(
        0, [&] { return ctx != nullptr && state != nullptr ? ctx->input.readState(state) : 0; });
}

} // extern "C"
