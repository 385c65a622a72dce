// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/scene_style.h"

namespace oglview {

void applyStyle(ogl::host::SceneBuilder& builder, const StyleOptions& style) {
    ogl::host::DrawingStyle drawing;
    drawing.hiddenEdges = style.hiddenEdges;
    drawing.edgeMarks = style.roundEnds;
    drawing.lineWeight = style.lineWeight;
    drawing.edgeOpacityPercent = style.edgeOpacityPercent.value_or(drawing.edgeOpacityPercent);
    drawing.drawingBackground = style.background;
    builder.setDrawingStyle(drawing);
    builder.setRenderMode(style.mode);
}

} // namespace oglview
