// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// Packing for ray tracing without GL: three quarters of a million triangles, a million packed
/// ones, in five thousand objects with 20 and with 500 materials, and in a single object; against
/// reading the same triangles once.
void benchRayTrace();

} // namespace ogl::bench
