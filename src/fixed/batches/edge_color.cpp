// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/edge_color.h"

#include "scene/record_color.h"

namespace ogl {

namespace {

constexpr float kWeakAlpha = 0.5f;
constexpr int kBrightest = 576; ///< sum of the channels that still shows on white

/// True when the host gave the line a pen.
bool hasPen(const LOOPSTYLE& style) {
    return style.pen != 0 || style.penNumber < kLoopNoPen;
}

} // namespace

Vec4 edgeColor(const LOOPSTYLE* style, bool edgesOnly) {
    if (style == nullptr)
        return {0.0f, 0.0f, 0.0f, 1.0f};
    const bool alternate = style->style == kLoopStyleAlternate && (!edgesOnly || hasPen(*style));
    BGR8 color = alternate ? style->alternateColor : style->color;
    if (edgesOnly && color.red + color.green + color.blue > kBrightest)
        color = {128, 128, 128};
    return {static_cast<float>(color.red) * kByteScale,
            static_cast<float>(color.green) * kByteScale,
            static_cast<float>(color.blue) * kByteScale, hasPen(*style) ? 1.0f : kWeakAlpha};
}

} // namespace ogl
