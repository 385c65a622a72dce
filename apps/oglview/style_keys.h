// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/style_options.h"

#include <string>
#include <vector>

namespace oglview {

/// What the keys of styleKeys() do to the style. Whether `key`, a virtual key, is one of them.
bool changeStyle(int key, StyleOptions& style);

/// A line for each of the keys.
const std::vector<std::string>& styleKeys();

} // namespace oglview
