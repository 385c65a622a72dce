// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <string>

namespace ogl {

/// The texture of "background.tga" in the textures folder; none when there is no such file or it
/// has no colours.
GLTexture createBackgroundTexture(const std::string& texturesFolder);

/// The same of "environment.tga", which surfaces reflect.
GLTexture createEnvironmentTexture(const std::string& texturesFolder);

} // namespace ogl
