// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/bmp_file.h"

#include "platform/file.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace ogl {

namespace {

constexpr size_t kFileHeaderBytes = 14;
constexpr size_t kInfoHeaderBytes = 40;
constexpr size_t kGreyPaletteBytes = 1024;
constexpr uint32_t kPixelsPerMetre = 2835; // 72 dots per inch
constexpr uint64_t kMostFileBytes = std::numeric_limits<uint32_t>::max();

struct BmpLayout {
    size_t components = 0;
    size_t rowBytes = 0; ///< padded
    size_t headerBytes = 0;
    size_t imageBytes = 0;
};

bool layoutOf(const Image& image, BmpLayout& layout) {
    if (image.format != ImageFormat::Grey8 && image.format != ImageFormat::Rgb8 &&
        image.format != ImageFormat::Rgba8)
        return false;
    if (image.width <= 0 || image.height <= 0 || image.pixels.size() < levelBytes(image, 0, 1))
        return false;
    layout.components = bytesPerPixel(image.format);
    layout.headerBytes = kFileHeaderBytes + kInfoHeaderBytes +
                         (image.format == ImageFormat::Grey8 ? kGreyPaletteBytes : 0);
    const uint64_t rowBytes =
        (uint64_t{static_cast<unsigned>(image.width)} * layout.components + 3) & ~uint64_t{3};
    const uint64_t imageBytes = rowBytes * static_cast<unsigned>(image.height);
    if (imageBytes > kMostFileBytes - layout.headerBytes)
        return false;
    layout.rowBytes = static_cast<size_t>(rowBytes);
    layout.imageBytes = static_cast<size_t>(imageBytes);
    return true;
}

class LittleEndianBytes {
  public:
    void text(char a, char b) {
        bytes_.push_back(static_cast<uint8_t>(a));
        bytes_.push_back(static_cast<uint8_t>(b));
    }
    void u16(unsigned value) { put(value, 2); }
    void u32(size_t value) { put(static_cast<uint32_t>(value), 4); }
    const std::vector<uint8_t>& bytes() const { return bytes_; }

  private:
    void put(uint32_t value, int count) {
        for (int k = 0; k < count; ++k)
            bytes_.push_back(static_cast<uint8_t>(value >> 8 * k));
    }

    std::vector<uint8_t> bytes_;
};

std::vector<uint8_t> headerOf(const Image& image, const BmpLayout& layout) {
    LittleEndianBytes header;
    header.text('B', 'M');
    header.u32(layout.headerBytes + layout.imageBytes);
    header.u16(0);
    header.u16(0);
    header.u32(layout.headerBytes);
    header.u32(kInfoHeaderBytes);
    header.u32(static_cast<unsigned>(image.width));
    header.u32(static_cast<unsigned>(image.height)); // positive: bottom row first
    header.u16(1);                                   // planes
    header.u16(static_cast<unsigned>(8 * layout.components));
    header.u32(0); // not compressed
    header.u32(layout.imageBytes);
    header.u32(kPixelsPerMetre);
    header.u32(kPixelsPerMetre);
    header.u32(0); // colours used: all
    header.u32(0); // important: all
    if (image.format == ImageFormat::Grey8)
        for (size_t grey = 0; grey < 256; ++grey)
            header.u32(grey * 0x01010101u);
    return header.bytes();
}

/// Red and blue change places.
void copyRow(const uint8_t* source, size_t pixels, size_t components, uint8_t* target) {
    if (components == 1) {
        std::copy_n(source, pixels, target);
        return;
    }
    for (size_t k = 0; k < pixels; ++k, source += components, target += components) {
        target[0] = source[2];
        target[1] = source[1];
        target[2] = source[0];
        if (components == 4)
            target[3] = source[3];
    }
}

bool writeAll(const Image& image, const BmpLayout& layout, std::FILE* file) {
    const std::vector<uint8_t> header = headerOf(image, layout);
    if (std::fwrite(header.data(), 1, header.size(), file) != header.size())
        return false;
    const auto width = static_cast<size_t>(image.width);
    std::vector<uint8_t> row(layout.rowBytes);
    for (auto y = static_cast<size_t>(image.height); y-- > 0;) {
        copyRow(&image.pixels[y * width * layout.components], width, layout.components, row.data());
        if (std::fwrite(row.data(), 1, row.size(), file) != row.size())
            return false;
    }
    return true;
}

} // namespace

bool writeBmp(const Image& image, const char* path) {
    BmpLayout layout;
    if (!layoutOf(image, layout))
        return false;
    std::FILE* file = openFile(path, "wb");
    if (file == nullptr)
        return false;
    const bool written = writeAll(image, layout, file);
    // What the C library still holds is written by closing.
    if (std::fclose(file) == 0 && written)
        return true;
    removeFile(path);
    return false;
}

} // namespace ogl
