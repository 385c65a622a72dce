// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// Largest point size that the renderers use, pixels.
inline constexpr float kPointSizeLimit = 100.0f;

/// Puts OpenGL into the state that the renderers start from: clockwise front faces, back faces
/// culled, depth test, alpha test, multisampling, flat shading; lighting, blending and client
/// arrays off; buffer swaps don't wait. Returns the largest point size, at most kPointSizeLimit.
float resetGLDefaults();

/// Lets colours outside 0 .. 1 into and out of programs: tangents and places travel as colours.
void turnColorClampingOff();

/// Turns a capability on or off.
void setCapability(unsigned capability, bool on);

} // namespace ogl
