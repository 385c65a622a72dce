// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/image_file.h"

#include "host/import/length_unit.h"
#include "oglview/user_error.h"

#include <stb_image_write.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace oglview {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<uint8_t>;

constexpr size_t kBmpHeaderBytes = 14 + 40;

void appendBytes(void* context, void* data, int size) {
    auto& bytes = *static_cast<Bytes*>(context);
    const auto* first = static_cast<const uint8_t*>(data);
    bytes.insert(bytes.end(), first, first + size);
}

/// The picture with red first and its top row first.
Bytes encodePng(const Picture& picture) {
    Bytes rows;
    rows.reserve(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height) * 3);
    for (int y = picture.height - 1; y >= 0; --y) {
        const uint8_t* row = picture.pixels + picture.rowBytes() * static_cast<size_t>(y);
        for (int x = 0; x < picture.width; ++x, row += 3)
            rows.insert(rows.end(), {row[2], row[1], row[0]});
    }
    Bytes file;
    if (!stbi_write_png_to_func(appendBytes, &file, picture.width, picture.height, 3, rows.data(),
                                picture.width * 3))
        file.clear();
    return file;
}

void append(Bytes& bytes, uint32_t value, int size) {
    for (int k = 0; k < size; ++k)
        bytes.push_back(static_cast<uint8_t>(value >> (8 * k)));
}

Bytes encodeBmp(const Picture& picture) {
    const size_t pixelBytes = picture.rowBytes() * static_cast<size_t>(picture.height);
    Bytes file = {'B', 'M'};
    append(file, static_cast<uint32_t>(kBmpHeaderBytes + pixelBytes), 4);
    append(file, 0, 4);
    append(file, kBmpHeaderBytes, 4);
    append(file, 40, 4);
    append(file, static_cast<uint32_t>(picture.width), 4);
    append(file, static_cast<uint32_t>(picture.height), 4);
    append(file, 1, 2);
    append(file, 24, 2);
    append(file, 0, 4);
    append(file, static_cast<uint32_t>(pixelBytes), 4);
    for (int k = 0; k < 4; ++k)
        append(file, 0, 4);
    file.insert(file.end(), picture.pixels, picture.pixels + pixelBytes);
    return file;
}

[[noreturn]] void failWriting(const std::string& path, const std::string& reason) {
    throw UserError("cannot write '" + path + "': " + reason);
}

std::string systemReason() {
    return errno != 0 ? std::strerror(errno) : "the system gave no reason";
}

} // namespace

void checkPictureName(const std::string& path) {
    const std::string extension = ogl::host::extensionOf(path);
    if (extension != "png" && extension != "bmp")
        throw UserError("'" + path + "' is no picture file: the name must end in .png or .bmp");
    const fs::path folder = fs::path(path).parent_path();
    std::error_code error;
    if (!folder.empty() && !fs::is_directory(folder, error))
        failWriting(path, "there is no folder '" + folder.string() + "'");
    if (fs::is_directory(path, error))
        failWriting(path, "it is a folder");
}

void writePicture(const std::string& path, const Picture& picture) {
    const Bytes bytes =
        ogl::host::extensionOf(path) == "png" ? encodePng(picture) : encodeBmp(picture);
    if (bytes.empty())
        failWriting(path, "the picture is too large to encode");
    writeWholeFile(path, bytes);
}

void writePng(const std::string& path, const ogl::host::DecodedImage& image) {
    Bytes file;
    if (!stbi_write_png_to_func(appendBytes, &file, image.width, image.height, 4,
                                image.pixels.data(), image.width * 4))
        failWriting(path, "the picture is too large to encode");
    writeWholeFile(path, file);
}

void writeWholeFile(const std::string& path, const std::vector<uint8_t>& bytes) {
    // Beside the file, then renamed, so that nobody ever finds half a file.
    const std::string unfinished = path + ".part";
    std::error_code ignored;
    errno = 0;
    std::ofstream file(unfinished, std::ios::binary);
    if (!file)
        failWriting(path, systemReason());
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        const std::string reason = systemReason();
        fs::remove(unfinished, ignored);
        failWriting(path, reason);
    }
    std::error_code error;
    fs::rename(unfinished, path, error);
    if (error) {
        fs::remove(unfinished, ignored);
        failWriting(path, error.message());
    }
}

} // namespace oglview
