// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The surroundings of a model: a clear sky with a few clouds above hazy land.
#pragma once

#include <string>

namespace oglview {

/// Writes the two pictures that the library looks for in its textures folder: "environment.tga",
/// which surfaces mirror, and "background.tga", which is seen through windows. Throws UserError.
void writeSkyTextures(const std::string& folder);

} // namespace oglview
