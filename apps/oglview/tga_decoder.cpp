// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/tga_decoder.h"

#include <limits>
#include <memory>

// Here alone, under names that meet no other copy.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#include <stb_image.h>

namespace oglview {

std::optional<ColorImage> decodeTga(std::span<const uint8_t> file) {
    if (file.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
        return std::nullopt;
    ColorImage image;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &image.width,
                              &image.height, nullptr, 4),
        stbi_image_free);
    if (pixels == nullptr)
        return std::nullopt;
    image.pixels.assign(pixels.get(),
                        pixels.get() + static_cast<ptrdiff_t>(image.width) * image.height * 4);
    return image;
}

} // namespace oglview
