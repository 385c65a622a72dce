// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// Frames of render mode 7 whose shadow map stays, to a plain OpenGL program that draws the same
/// buffers with the same GLSL program. False when no view can be made.
bool benchShadow();

} // namespace ogl::bench
