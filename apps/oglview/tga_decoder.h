// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/image_file.h"

#include <optional>
#include <span>

namespace oglview {

/// Decodes a TGA file. Nothing when it is damaged.
std::optional<ColorImage> decodeTga(std::span<const uint8_t> file);

} // namespace oglview
