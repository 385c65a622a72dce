// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/options.h"
#include "scene/sun/sun_position.h"

namespace oglview {

/// Where the library puts the sun. Throws UserError for what it cannot take.
ogl::SunPosition calculateSun(const DayAndPlace& at);

/// Where the sun stands at that moment, as seen in the model.
SunPosition sunInModel(const DayAndPlace& moment);

} // namespace oglview
