// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_parts.h"
#include "oglview/image_file.h"

#include <optional>

namespace oglview {

/// The colour image of a texture; its opacity map, scaled to the same size, becomes its alpha.
/// Nothing when the texture has no colour image or its bytes are damaged.
std::optional<ColorImage> texturePicture(const ogl::host::Texture& texture);

} // namespace oglview
