// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "image/image.h"

namespace ogl {

/// Writes the image's largest level as an uncompressed Windows bitmap of 8 (grey), 24 or 32 bits
/// per pixel at 72 dots per inch. `path` may have a host's backslashes; a file that is there is
/// replaced. Returns false for other formats, for an image without pixels or with more than a
/// bitmap file can hold, and when the file cannot be made or written to its end; a file written
/// only in part is removed.
bool writeBmp(const Image& image, const char* path);

} // namespace ogl
