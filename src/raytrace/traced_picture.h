// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ogl {

/// The picture to trace.
struct TraceOrder {
    int width = 0; ///< pixels; at most kLargestTracedPixels together
    int height = 0;
    int samples = 1;   ///< of every pixel
    uint32_t seed = 1; ///< of the rays' random places and directions
};

inline constexpr int64_t kLargestTracedPixels = int64_t{4096} * 4096;

/// Hears what part of all samples is done, 0 to 1.
using TraceProgress = std::function<void(double part)>;

/// What came of an order.
struct TracedPicture {
    std::string problem;       ///< one line; empty = there is a picture
    std::vector<uint8_t> rgba; ///< four bytes a pixel, bottom row first, black beside the scene
};

/// Traces a picture of the scene in a view of its own on the hidden window, which must not be in
/// use. Takes the change marks of the scene's objects. Afterwards no context is current and there
/// is no hidden window.
TracedPicture traceScene(SCENE& scene, const TraceOrder& order, const TraceProgress& progress = {});

} // namespace ogl
