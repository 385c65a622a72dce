// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/view_calls.h"

#include "api/renderer_selection.h"
#include "fixed/batches/batches.h"
#include "fixed/textures/texture_image.h"
#include "gpu/gl_objects.h"
#include "platform/host_debug_log.h"
#include "platform/own_window.h"
#include "render/process_state.h"
#include "render/render_context.h"

#include <memory>

namespace ogl {

namespace {

// Latin-1: the host's trace is single-byte text.
constexpr const char* kOperation = "d3_Create()";
constexpr const char* kBegin = "d\xE9"
                               "but";
constexpr const char* kSuccess = "fin avec succ\xE8s";

} // namespace

RenderContext* createView(HWND window, unsigned flags, const char* iniPath) {
    hostDebugLog().write(0, kOperation, kBegin, 0);
    if (window == nullptr) {
        if (!ensureOwnWindow(processState().moduleInstance)) {
            ErrorLog log;
            log.open(logPathFor(iniPath));
            log.write("Error", "No own window", "");
            return nullptr;
        }
        window = ownWindow();
    }
    auto context = std::make_unique<RenderContext>(window, flags, iniPath);
    if (!context->initializeOpenGL())
        return nullptr;
    hostDebugLog().write(0, kOperation, kSuccess, 0);
    return context.release();
}

void releaseView(RenderContext* context) {
    if (processState().currentRenderer != nullptr) {
        // Without a context the renderer's objects wait for the next one.
        if (context != nullptr)
            makeCurrent(context->primary);
        destroyCurrentRenderer();
    }
    delete context;
}

void releaseParked(void* slot, int kind) {
    if (slot != nullptr) {
        // The slot is 4 bytes wide on every build and need not be aligned.
        switch (kind) {
        case kReleaseTextureImage:
            releaseTextureImage(*static_cast<Ptr32<TextureImage>*>(slot));
            break;
        case kReleaseMeshBatches:
            releaseMeshBatches(*static_cast<Ptr32<MeshBatchList>*>(slot));
            break;
        case kReleaseBatchSet:
            releaseBatchSet(*static_cast<Ptr32<BatchSet>*>(slot));
            break;
        default:
            static_cast<Ptr32<void>*>(slot)->set(nullptr);
            break;
        }
    }
    processState().sceneChanged = 1;
}

} // namespace ogl
