// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/polygon_tessellator.h"

#include "platform/win32.h"

#include <deque>
#include <memory>

namespace ogl::host {

namespace {

struct Output {
    std::deque<Vec3> made; ///< crossings; addresses must stay
    std::vector<Vec3> triangles;
    bool failed = false;
};

void GLAPIENTRY onVertex(void* vertex, void* output) {
    static_cast<Output*>(output)->triangles.push_back(*static_cast<const Vec3*>(vertex));
}

void GLAPIENTRY onCombine(GLdouble position[3], void* [4], GLfloat[4], void** vertex,
                          void* output) {
    auto& made = static_cast<Output*>(output)->made;
    made.push_back({position[0], position[1], position[2]});
    *vertex = &made.back();
}

// Asking for edge flags makes GLU emit plain triangles instead of fans and strips.
void GLAPIENTRY onEdgeFlag(GLboolean, void*) {}

void GLAPIENTRY onError(GLenum, void* output) {
    static_cast<Output*>(output)->failed = true;
}

template <class Function> void setCallback(GLUtesselator* tess, GLenum which, Function* function) {
    using Callback = void(GLAPIENTRY*)();
    gluTessCallback(tess, which, reinterpret_cast<Callback>(function));
}

} // namespace

std::vector<Vec3> tessellate(const std::vector<std::vector<Vec3>>& loops, Vec3 normal) {
    const std::unique_ptr<GLUtesselator, void(GLAPIENTRY*)(GLUtesselator*)> tess(gluNewTess(),
                                                                                 gluDeleteTess);
    if (tess == nullptr)
        return {};
    Output output;
    setCallback(tess.get(), GLU_TESS_VERTEX_DATA, onVertex);
    setCallback(tess.get(), GLU_TESS_COMBINE_DATA, onCombine);
    setCallback(tess.get(), GLU_TESS_EDGE_FLAG_DATA, onEdgeFlag);
    setCallback(tess.get(), GLU_TESS_ERROR_DATA, onError);
    gluTessProperty(tess.get(), GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_POSITIVE);
    gluTessNormal(tess.get(), normal.x, normal.y, normal.z);
    gluTessBeginPolygon(tess.get(), &output);
    for (const auto& loop : loops) {
        gluTessBeginContour(tess.get());
        for (const Vec3& point : loop) {
            GLdouble position[3] = {point.x, point.y, point.z};
            gluTessVertex(tess.get(), position, const_cast<Vec3*>(&point));
        }
        gluTessEndContour(tess.get());
    }
    gluTessEndPolygon(tess.get());
    if (output.failed || output.triangles.size() % 3 != 0)
        return {};
    return std::move(output.triangles);
}

Vec3 areaVector(const std::vector<Vec3>& loop) {
    Vec3 sum;
    for (size_t i = 1; i + 1 < loop.size(); ++i)
        sum = sum + cross(loop[i] - loop[0], loop[i + 1] - loop[0]);
    return sum;
}

} // namespace ogl::host
