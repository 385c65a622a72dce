// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"
#include "render/renderer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ogl {

/// One line of text; its base line is `y` pixels below the view's top.
struct HudLine {
    std::string text;
    int y;
    Vec3 color;
};

/// What the heads-up display says: the host's message, the frame rate and the view's size, the
/// scene's counts, each as the record asks for it. Lines below the view are left out of a message.
std::vector<HudLine> hudLines(const Renderer& renderer, const VIEW& view);

/// "FPS = " and the frames per second with one decimal, from two values of the performance counter
/// that makes `frequency` counts per second.
std::string frameRateText(int64_t previousCounter, int64_t counter, int64_t frequency);

/// Draws the lines into the view, which must have a size; starts from and leaves the overlay state.
void drawHud(const Renderer& renderer, const VIEW& view);

} // namespace ogl
