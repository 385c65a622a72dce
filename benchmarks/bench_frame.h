// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// Frames of the technical drawing at 1024 x 768: the first one, which builds and uploads a million
/// triangles, and later ones against a plain OpenGL program. Returns false without a display.
bool benchFrame();

} // namespace ogl::bench
