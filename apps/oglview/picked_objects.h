// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "oglview/parse_values.h"

#include <vector>

namespace oglview {

/// Numbers of the objects under pixel (x, y) of a view of the given size, nearest first.
std::vector<int> pickedObjects(ogl::SCENE& scene, Size view, int x, int y);

} // namespace oglview
