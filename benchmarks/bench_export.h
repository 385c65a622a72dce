// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// What writing a document of a million triangles costs.
void benchExport();

} // namespace ogl::bench
