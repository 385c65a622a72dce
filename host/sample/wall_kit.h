// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Walls along x and y of a plan, as planar faces with openings.
#pragma once

#include "host/sample/mesh_brush.h"

#include <vector>

namespace ogl::host {

/// A hole through a wall. The wall runs along x (or y) between two coordinates of the other axis;
/// the hole reaches from `low` to `high` along it and from `sill` to `head`.
struct WallOpening {
    bool alongX = true;
    double nearFace = 0.0;
    double farFace = 0.0;
    double low = 0.0;
    double high = 0.0;
    double sill = 0.0; ///< 0 = a door
    double head = 2.1;

    /// Middle of the opening at height `z`.
    Vec3 middle(double z) const;
    /// The point at `at` along the wall, `across` it and height `z`.
    Vec3 point(double at, double across, double z) const {
        return alongX ? Vec3{at, across, z} : Vec3{across, at, z};
    }
};

/// A rectangle of the plan.
struct PlanBox {
    double x0, y0, x1, y1;
};

struct WallFace {
    Vec2 from; ///< the visible side is to the left of from -> to
    Vec2 to;
    double base = 0.0;
    double top = 2.6;
    Paint paint;
};

/// Adds a wall's face with the openings that lie in it.
void addWallFace(SceneBuilder& builder, ObjectId object, const WallFace& face,
                 const std::vector<WallOpening>& openings);

/// Adds the four sides of an opening (three of a door) through the wall.
void addReveals(SceneBuilder& builder, ObjectId object, const WallOpening& opening,
                const Paint& paint);

/// Adds a level rectangle at height `z`, seen from above, or from below.
void addLevel(SceneBuilder& builder, ObjectId object, const PlanBox& box, double z,
              const Paint& paint, bool fromBelow = false);

/// Adds a skirting board along a wall's face, left out at doors.
void addSkirting(MeshBrush& brush, const WallFace& face, const std::vector<WallOpening>& openings);

} // namespace ogl::host
