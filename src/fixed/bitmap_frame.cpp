// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/bitmap_frame.h"

#include "render/bitmap_target.h"
#include "render/error_log.h"

namespace ogl {

void drawFrameToBitmap(const Renderer& renderer, HBITMAP bitmap,
                       const std::function<void()>& drawFrame) {
    const BitmapTarget target = bitmapTarget(bitmap);
    if (!target.isValid())
        return;
    if (target.width != renderer.width || target.height != renderer.height) {
        renderer.errorLog->write("Error", "Bitmap size differs from the view", "");
        return;
    }
    drawFrame();
    readFrame(target, renderer.width, renderer.height);
}

} // namespace ogl
