// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <string>

namespace ogl {

class ErrorLog;

/// The texture of "background.tga" in the textures folder; none when there is no such file, it has
/// no colours or is too large, which the log says.
GLTexture createBackgroundTexture(const std::string& texturesFolder, ErrorLog& log);

/// The same of "environment.tga", which surfaces reflect.
GLTexture createEnvironmentTexture(const std::string& texturesFolder, ErrorLog& log);

} // namespace ogl
