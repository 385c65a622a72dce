// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/loop_points.h"

namespace ogl {

void appendSegments(const ListView<LOOPPOINT>& list, ItemRange points, bool closed, double scale,
                    Vec3Array& ends) {
    if (points.count <= 0)
        return;
    const auto point = [&](int number) { return scaledPoint(list[number].position, scale); };
    Vec3 from = point(closed ? points.end() - 1 : points.first);
    for (int k = points.first + (closed ? 0 : 1); k < points.end(); ++k) {
        const Vec3 to = point(k);
        ends.push_back(from);
        ends.push_back(to);
        from = to;
    }
}

} // namespace ogl
