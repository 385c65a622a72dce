// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/image_decoder.h"

#include <stb_image.h>

#include <limits>
#include <memory>

namespace ogl::host {

bool DecodedImage::hasAlpha() const {
    for (size_t k = 3; k < pixels.size(); k += 4)
        if (pixels[k] != 255)
            return true;
    return false;
}

std::string decodeImage(std::span<const uint8_t> file, DecodedImage& image) {
    if (file.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
        return "it is too large";
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &image.width,
                              &image.height, nullptr, 4),
        stbi_image_free);
    if (pixels == nullptr)
        return stbi_failure_reason();
    const size_t bytes =
        size_t{4} * static_cast<size_t>(image.width) * static_cast<size_t>(image.height);
    image.pixels.assign(pixels.get(), pixels.get() + bytes);
    return {};
}

} // namespace ogl::host
