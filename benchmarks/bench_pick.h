// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// One pick in a million triangles against reading their bytes once.
void benchPick();

} // namespace ogl::bench
