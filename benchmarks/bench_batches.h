// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// Batch building without GL: a million triangles in five thousand objects with 20 and with 500
/// materials, against the plain sort of the same triangles.
void benchBatches();

} // namespace ogl::bench
