// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// How large a view is for a picture that takes any size.
#pragma once

#include <cstdint>

namespace ogl {

struct ViewSize {
    int width; ///< pixels
    int height;
    bool operator==(const ViewSize&) const = default;
};

/// What a driver draws in one piece.
struct FrameLimits {
    int side;      ///< pixels, of viewports, textures and renderbuffers
    int64_t bytes; ///< of memory for a frame
};

/// The limits of the current context. Half of the memory that the driver has in all, where it says
/// so; what is free now also depends on the frame before.
FrameLimits frameLimits();

/// The samples that the driver gives targets of which so many are asked; 0 for 0.
int givenSamples(int asked);

/// Memory that a frame takes per pixel: its samples count, not its pixels alone. `targetSamples`:
/// of targets in which a photo is put together, 0 without.
int64_t frameBytesPerPixel(int windowSamples, int targetSamples);

/// The size of the picture, if the driver draws it in one piece; else the largest square for a tile
/// of it. No side of a tile is longer than four times the picture's shorter one: a quarter of it is
/// what photos keep.
ViewSize viewSizeFor(ViewSize picture, int64_t bytesPerPixel, const FrameLimits& limits);

} // namespace ogl
