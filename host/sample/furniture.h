// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Furniture that stands in more than one place. Each piece is added to a brush in the given frame:
// origin on the floor, x to the right and y to the front of the piece.
#pragma once

#include "host/sample/flat_paints.h"

namespace ogl::host {

/// A chair; origin in the middle of its seat's shadow, its back at negative y.
void addChair(MeshBrush& brush, const FlatPaints& paints, const Frame& frame);

/// A potted plant of `height` metres with `leaves` leaves.
void addPlant(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double height,
              int leaves);

/// A shelf of boards with `rows` rows of books; origin at its back left corner.
void addBookshelf(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double width,
                  double height, int rows);

/// A lamp with a fabric shade on a foot; the lower rim of its shade is at `height`.
void addTableLamp(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double height,
                  double shadeRadius);

/// A pendant from the ceiling, its shade's lower rim at `height`.
void addPendant(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double height,
                double shadeRadius);

/// A pair of curtains `width` apart at a window, from `top` to just above the floor.
void addCurtains(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double width,
                 double top);

/// A framed picture on a wall; origin at the wall in its middle, y off the wall.
void addPicture(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double width,
                double height);

/// Cupboard fronts with bar handles: `columns` doors side by side over a width.
void addFronts(MeshBrush& brush, const Paint& front, const Paint& handle, const Frame& frame,
               double width, int columns, double low, double high);

/// Drawer fronts one above the other.
void addDrawers(MeshBrush& brush, const Paint& front, const Paint& handle, const Frame& frame,
                double width, int rows, double low, double high);

/// Four slender legs under a rectangle.
void addLegs(MeshBrush& brush, const Paint& paint, double x0, double y0, double x1, double y1,
             double height, double radius);

} // namespace ogl::host
