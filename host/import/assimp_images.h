// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/model_textures.h"

struct aiScene;

namespace ogl::host {

/// The pictures of a model that was read from `path`: those inside of it, else the files beside
/// it. Use it while the scene lives.
ImageSource imagesOf(const aiScene& scene, const std::string& path);

} // namespace ogl::host
