// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/tga_file.h"

#include "platform/file.h"

#include <algorithm>
#include <array>

namespace ogl {

namespace {

using Bytes = std::span<const uint8_t>;

constexpr size_t kHeaderBytes = 18;
constexpr unsigned kPaletteImage = 1;
constexpr unsigned kRunLength = 0x8; ///< bit of the image type
constexpr uint8_t kRepeat = 0x80;    ///< bit of a packet's header
constexpr size_t kPaletteSize = 256;

struct TgaHeader {
    size_t idLength;
    bool hasPalette;
    unsigned imageType; ///< without kRunLength
    bool runLength;
    size_t paletteStart; ///< pixel value of the first entry
    size_t paletteLength;
    unsigned paletteBits; ///< per entry
    size_t width;
    size_t height;
    unsigned bitsPerPixel;

    bool isImage() const {
        return width > 0 && height > 0 && imageType >= 1 && imageType <= 3 && bitsPerPixel > 0;
    }
    size_t pixelBytes() const { return (bitsPerPixel + 7) / 8; }
    size_t entryBytes() const { return (paletteBits + 7) / 8; }
    size_t paletteBytes() const { return hasPalette ? paletteLength * entryBytes() : 0; }
};

size_t word(Bytes file, size_t offset) {
    return file[offset] | static_cast<size_t>(file[offset + 1]) << 8;
}

TgaHeader readHeader(Bytes file) {
    return {.idLength = file[0],
            .hasPalette = file[1] != 0,
            .imageType = file[2] & ~kRunLength,
            .runLength = (file[2] & kRunLength) != 0,
            .paletteStart = word(file, 3),
            .paletteLength = word(file, 5),
            .paletteBits = file[7],
            .width = word(file, 12),
            .height = word(file, 14),
            .bitsPerPixel = file[16]};
}

/// Palette entries are blue, green, red; a fourth byte is not read.
bool isReadable(const TgaHeader& header) {
    if (!header.isImage())
        return false;
    if (header.bitsPerPixel == 8)
        return !header.hasPalette || header.entryBytes() == 3 || header.entryBytes() == 4;
    return header.bitsPerPixel == 16 || header.bitsPerPixel == 24 || header.bitsPerPixel == 32;
}

/// Takes `count` bytes from the front of `file`; false when it has fewer.
bool take(Bytes& file, size_t count, Bytes& taken) {
    if (count > file.size())
        return false;
    taken = file.first(count);
    file = file.subspan(count);
    return true;
}

/// Calls `visit` with the pixel count, the values and their repetitions of each run-length packet
/// of `data` until `pixels` are there; the last packet is cut where they end. False when the data
/// end first.
template <class Visitor>
bool forEachPacket(Bytes data, size_t pixels, size_t pixelBytes, const Visitor& visit) {
    while (pixels > 0) {
        Bytes header;
        Bytes values;
        if (!take(data, 1, header))
            return false;
        const size_t count = std::min<size_t>((header[0] & ~kRepeat) + 1u, pixels);
        const size_t repeats = (header[0] & kRepeat) != 0 ? count : 1;
        if (!take(data, count / repeats * pixelBytes, values))
            return false;
        visit(values, repeats);
        pixels -= count;
    }
    return true;
}

/// The pixels of run-length data, which must be complete.
std::vector<uint8_t> expandRuns(Bytes data, size_t pixels, size_t pixelBytes) {
    std::vector<uint8_t> result(pixels * pixelBytes);
    uint8_t* target = result.data();
    forEachPacket(data, pixels, pixelBytes, [&target](Bytes values, size_t repeats) {
        for (size_t k = 0; k < repeats; ++k)
            target = std::copy(values.begin(), values.end(), target);
    });
    return result;
}

/// 1 bit alpha, 5 bits red, green and blue.
void expand16(const uint8_t* source, uint8_t* target) {
    const unsigned value = source[0] | static_cast<unsigned>(source[1]) << 8;
    target[0] = static_cast<uint8_t>(value >> 7 & 0xf8u);
    target[1] = static_cast<uint8_t>(value >> 2 & 0xf8u);
    target[2] = static_cast<uint8_t>(value << 3 & 0xffu);
    target[3] = (value & 0x8000u) != 0 ? 255 : 0;
}

void swapRedAndBlue(const uint8_t* source, size_t components, uint8_t* target) {
    target[0] = source[2];
    target[1] = source[1];
    target[2] = source[0];
    if (components == 4)
        target[3] = source[3];
}

/// The entries of a palette by pixel value, red, green, blue; those that the file lacks are black.
using Palette = std::array<std::array<uint8_t, 3>, kPaletteSize>;

Palette readPalette(const TgaHeader& header, Bytes entries) {
    Palette palette{};
    for (size_t k = 0; k < header.paletteLength; ++k)
        if (header.paletteStart + k < kPaletteSize)
            swapRedAndBlue(&entries[k * header.entryBytes()], 3,
                           palette[header.paletteStart + k].data());
    return palette;
}

ImageFormat formatOf(const TgaHeader& header) {
    if (header.bitsPerPixel == 8)
        return header.hasPalette ? ImageFormat::Rgb8 : ImageFormat::Grey8;
    return header.bitsPerPixel == 24 ? ImageFormat::Rgb8 : ImageFormat::Rgba8;
}

void convertPixel(const TgaHeader& header, const Palette& palette, const uint8_t* source,
                  uint8_t* target) {
    switch (header.bitsPerPixel) {
    case 8:
        if (header.hasPalette)
            std::copy_n(palette[*source].data(), 3, target);
        else
            *target = *source;
        break;
    case 16:
        expand16(source, target);
        break;
    default:
        swapRedAndBlue(source, header.pixelBytes(), target);
    }
}

std::vector<uint8_t> convertRows(const TgaHeader& header, const Palette& palette,
                                 const uint8_t* rows) {
    const size_t components = bytesPerPixel(formatOf(header));
    const size_t rowBytes = header.width * header.pixelBytes();
    std::vector<uint8_t> pixels(header.width * header.height * components);
    uint8_t* target = pixels.data();
    for (size_t y = header.height; y-- > 0;) {
        const uint8_t* source = rows + y * rowBytes;
        for (size_t x = 0; x < header.width; ++x) {
            convertPixel(header, palette, source, target);
            source += header.pixelBytes();
            target += components;
        }
    }
    return pixels;
}

struct TgaFile {
    TgaHeader header{};
    Bytes palette;
    Bytes data; ///< of the pixels, to the end of the file
};

/// Finds the parts of a file; false when it is no image or lacks some of its bytes.
bool split(Bytes file, TgaFile& parts) {
    if (file.size() < kHeaderBytes)
        return false;
    const TgaHeader header = readHeader(file);
    Bytes rest = file.subspan(kHeaderBytes);
    Bytes id;
    if (!header.isImage() || !take(rest, header.idLength, id) ||
        !take(rest, header.paletteBytes(), parts.palette))
        return false;
    parts.header = header;
    parts.data = rest;
    const uint64_t pixels = uint64_t{header.width} * header.height;
    if (!header.runLength)
        return pixels * header.pixelBytes() <= rest.size();
    return pixels <= SIZE_MAX / 4 && forEachPacket(rest, static_cast<size_t>(pixels),
                                                   header.pixelBytes(), [](Bytes, size_t) {});
}

/// Reads to the end; false when that fails.
bool readAll(std::FILE* file, std::vector<uint8_t>& bytes) {
    std::array<uint8_t, 65536> block;
    while (const size_t count = std::fread(block.data(), 1, block.size(), file))
        bytes.insert(bytes.end(), block.begin(), block.begin() + static_cast<ptrdiff_t>(count));
    return std::ferror(file) == 0;
}

} // namespace

bool hasPlainPalette(std::span<const uint8_t> file) {
    const TgaHeader header = readHeader(file);
    return !header.hasPalette || (header.imageType == kPaletteImage && header.paletteStart == 0);
}

bool isWholeTga(std::span<const uint8_t> file) {
    TgaFile parts;
    return split(file, parts);
}

std::vector<uint8_t> withPlainPalette(std::span<const uint8_t> file) {
    constexpr size_t kMostEntries = 0xffff; // that a header tells of; more have no pixel value
    const TgaHeader header = readHeader(file);
    const bool used = header.imageType == kPaletteImage;
    const size_t start = used ? header.paletteStart : 0;
    const size_t kept = used ? std::min(header.paletteLength, kMostEntries - start) : 0;
    const Bytes front = file.first(kHeaderBytes + header.idLength);
    const Bytes palette = file.subspan(front.size(), kept * header.entryBytes());
    const Bytes rest = file.subspan(front.size() + header.paletteBytes());
    std::vector<uint8_t> bytes(front.begin(), front.end());
    bytes[1] = used ? 1 : 0;
    bytes[3] = bytes[4] = 0;
    bytes[5] = static_cast<uint8_t>(start + kept);
    bytes[6] = static_cast<uint8_t>((start + kept) >> 8);
    bytes.insert(bytes.end(), start * header.entryBytes(), 0);
    bytes.insert(bytes.end(), palette.begin(), palette.end());
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

bool decodeTga(std::span<const uint8_t> file, Image& image) {
    TgaFile parts;
    if (!split(file, parts) || !isReadable(parts.header))
        return false;
    const TgaHeader& header = parts.header;
    std::vector<uint8_t> expanded;
    if (header.runLength)
        expanded = expandRuns(parts.data, header.width * header.height, header.pixelBytes());
    Palette palette{};
    if (header.hasPalette && header.bitsPerPixel == 8)
        palette = readPalette(header, parts.palette);
    const uint8_t* rows = header.runLength ? expanded.data() : parts.data.data();
    image = {.pixels = convertRows(header, palette, rows),
             .width = static_cast<int>(header.width),
             .height = static_cast<int>(header.height),
             .levels = 1,
             .format = formatOf(header)};
    return true;
}

bool loadTga(const char* path, Image& image) {
    const FileHandle file(openFile(path, "rb"));
    std::vector<uint8_t> bytes;
    return file != nullptr && readAll(file.get(), bytes) && decodeTga(bytes, image);
}

} // namespace ogl
