// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/tga_memory.h"

#include "image/tga_file.h"

#include <limits>
#include <memory>

// The one place of the library where the decoder is compiled, with what is used of it. Whoever
// links the library may have one of their own.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#include <stb_image.h>

namespace ogl {

namespace {

bool decode(std::span<const uint8_t> file, std::vector<uint8_t>& decoded) {
    if (file.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
        return false;
    int width = 0;
    int height = 0;
    int components = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height,
                              &components, 0),
        stbi_image_free);
    if (pixels == nullptr)
        return false;
    const size_t bytes =
        static_cast<size_t>(width) * static_cast<size_t>(height) * static_cast<size_t>(components);
    decoded.assign(pixels.get(), pixels.get() + bytes);
    return true;
}

} // namespace

bool decodeTgaMemory(std::span<const uint8_t> file, std::vector<uint8_t>& pixels) {
    // The decoder takes zeros for what a file lacks, so the file is measured first.
    if (!isWholeTga(file))
        return false;
    return hasPlainPalette(file) ? decode(file, pixels) : decode(withPlainPalette(file), pixels);
}

} // namespace ogl
