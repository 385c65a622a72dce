// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/image_decoder.h"
#include "host/scene_parts.h"

#include <optional>

namespace oglview {

/// The colour image of a texture; its opacity map, scaled to the same size, becomes its alpha.
/// Nothing when the texture has no colour image or its bytes are damaged.
std::optional<ogl::host::DecodedImage> texturePicture(const ogl::host::Texture& texture);

} // namespace oglview
