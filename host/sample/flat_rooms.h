// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The parts of the sample flat. Its plan in metres, north up, outer size 12.6 x 9:
//
//     +--------+------------+---------+ 9
//     | study  |    hall    |  bath   |
//     +--------+----    ----+---------+ 5.2
//     |  kitchen, dining,   | bedroom |
//     |  living             |         |
//     +---------------------+---------+ 0
//        terrace
#pragma once

#include "host/sample/flat_paints.h"
#include "host/sample/wall_kit.h"

#include <string>

namespace ogl::host {

inline constexpr double kCeilingHeight = 2.6;
inline constexpr PlanBox kOutside{0.0, 0.0, 12.6, 9.0};
inline constexpr PlanBox kLiving{0.3, 0.3, 8.0, 5.2};
inline constexpr PlanBox kBedroom{8.12, 0.3, 12.3, 5.2};
inline constexpr PlanBox kHall{4.2, 5.32, 8.0, 8.7};
inline constexpr PlanBox kBath{8.12, 5.32, 12.3, 8.7};
inline constexpr PlanBox kStudy{0.3, 5.32, 4.08, 8.7};

/// What the rooms are furnished with.
struct FlatSite {
    SceneBuilder& builder;
    const FlatPaints& paints;

    /// Adds what the brush collected as an object of its own.
    ObjectId place(std::string name, MeshBrush& brush) const {
        const ObjectId object = builder.addObject(std::move(name));
        brush.addTo(builder, object);
        return object;
    }
};

/// Walls, floors, windows, doors. Returns the roof with the ceilings, which views from above hide.
ObjectId addShell(const FlatSite& flat);
void addTerraceAndGarden(const FlatSite& flat);
void addLivingRoom(const FlatSite& flat);
void addKitchen(const FlatSite& flat);
void addDining(const FlatSite& flat);
void addBedroom(const FlatSite& flat);
void addBathroom(const FlatSite& flat);
void addHall(const FlatSite& flat);
void addStudy(const FlatSite& flat);

} // namespace ogl::host
