// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/batches/loop_points.h"
#include "fixed/overlays/overlay_state.h"
#include "fixed/overlays/placed_lines.h"
#include "gpu/gl_debug.h"

namespace ogl {

namespace {

constexpr Vec3 kRim{0.6f, 0.6f, 0.6f};
constexpr float kRimWidth = 2.9f;
constexpr float kHighlightWidth = 2.5f;
constexpr Vec3 kMovedGround{0.55f, 0.55f, 0.55f};
constexpr Vec3 kMoved{0.25f, 0.25f, 0.25f};

/// Yellow with both highlight bits, red with kHighlightSelected, blue with kHighlightMarked alone.
Vec3 highlightColor(uint32_t highlight) {
    const bool selected = (highlight & kHighlightSelected) != 0;
    const bool marked = (highlight & kHighlightMarked) != 0;
    if (selected && marked)
        return {1.0f, 1.0f, 0.25f};
    return selected ? Vec3{1.0f, 0.35f, 0.35f} : Vec3{0.3f, 0.35f, 1.0f};
}

/// The first loop of every face of the object, closed.
void appendOutline(const SceneLists& lists, int object, double scale, Vec3Array& ends) {
    const ItemRange faces = lists.faces.cluster(object);
    for (int f = faces.first; f < faces.end(); ++f) {
        const FACELOOPS* loops = lists.faceLoops.at(f);
        if ((lists.faces.items()[f].flags & kFaceNoHighlight) != 0 || loops == nullptr ||
            loops->loopCount <= 0)
            continue;
        const LOOP* loop = lists.loops.at(loops->firstLoop);
        if (loop != nullptr)
            appendSegments(
                lists.loopPoints,
                clippedRange(loop->firstPoint, loop->pointCount, lists.loopPoints.size()), true,
                scale, ends);
    }
}

void setState() {
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_MULTISAMPLE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    unbindAllArrays();
}

void drawOutline(const VertexArray& outline, uint32_t highlight) {
    glLineWidth(kRimWidth);
    setColor(kRim);
    outline.draw(kDrawPositions);
    glLineWidth(kHighlightWidth);
    setColor(highlightColor(highlight));
    outline.draw(kDrawPositions);
    outline.unbind();
}

bool isMoved(const VIEW& view, uint32_t highlight) {
    return view.mode == kViewModeMove && (highlight & kHighlightSelected) != 0;
}

} // namespace

void drawHighlights(const SCENE& scene, const VIEW& view) {
    const DebugGroup group("selection highlights");
    const SceneLists lists(scene);
    const int count = visitedObjectCount(scene, lists);
    setState();
    for (int k = 0; k < count; ++k) {
        const OBJECT* object = lists.objects.at(k); // hidden ones are highlighted too
        const uint32_t highlight = object != nullptr ? object->highlight : 0;
        if ((highlight & (kHighlightSelected | kHighlightMarked)) == 0)
            continue;
        VertexArray outline;
        appendOutline(lists, k, loopPointScale(scene), outline.positions);
        if (outline.positions.empty())
            continue;
        outline.upload(GL_LINES);
        drawOutline(outline, highlight);
        if (isMoved(view, highlight))
            drawPlacedLines(outline, placementOf(scene, view, view.moveOffset, view.boxAngle),
                            kMovedGround, kMoved);
    }
    setOverlayState();
}

} // namespace ogl
