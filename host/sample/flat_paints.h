// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/sample/mesh_brush.h"

namespace ogl::host {

/// The materials of the sample flat.
struct FlatPaints {
    explicit FlatPaints(SceneBuilder& builder);

    Paint plaster, render, cut, ceiling;
    Paint planks, stone, wallTiles, deck;
    Paint oak, walnut, whiteLacquer, greyLacquer, worktop;
    Paint steel, brass, black, glass, mirror, ceramic;
    Paint fabric, cushion, linen, rug, curtain;
    Paint shade, bulb;
    Paint leaf, soil, pot, painting;
    Paint redBook, blueBook, creamBook, fruit, grass;
};

} // namespace ogl::host
