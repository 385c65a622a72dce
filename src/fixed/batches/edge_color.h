// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// The colour (red, green, blue, alpha; 0 .. 1) in which faces whose first loop has this style are
/// outlined. Null: opaque black. `edgesOnly`: the rule of render mode 11.
Vec4 edgeColor(const LOOPSTYLE* style, bool edgesOnly);

} // namespace ogl
