// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/picture_drawing.h"

#include "oglview/file_drawing.h"
#include "oglview/fill_gauge.h"
#include "oglview/ray_drawing.h"
#include "oglview/scene_style.h"
#include "oglview/standpoint.h"
#include "oglview/sun_moment.h"

#include <optional>

namespace oglview {

void drawPicture(const DrawingView& view, LoadedScene& scene, const StyleOptions& style,
                 DibSection& bitmap, const Progress& progress) {
    applyStyle(scene.builder, style);
    std::optional<FillProgress> filling;
    if (progress.shown())
        filling.emplace(progress, bitmap.pixels(), bitmap.picture().width, bitmap.picture().height);
    const uint32_t flags = drawFlagsOf(style);
    if (style.rays == RayWork::Preview)
        drawRayPreview(view, scene.builder.scene(), flags, bitmap);
    else if (style.throughFile)
        drawThroughFile(view, scene.builder.scene(), flags, bitmap);
    else
        d3_DrawInDibSection(view.get(), scene.builder.scene(), flags, bitmap.get());
}

void completeStyle(StyleOptions& style, const LoadedScene& scene, const ogl::host::Camera& camera) {
    if (style.sunMoment)
        style.sun = sunInModel(*style.sunMoment);
    if (style.mode == ogl::kRenderModePhoto && !style.photo.interior)
        style.photo.interior = standsInside(scene, camera);
}

} // namespace oglview
