// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/picture_drawing.h"

#include "oglview/fill_gauge.h"
#include "oglview/scene_style.h"
#include "oglview/user_error.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace oglview {
namespace {

namespace fs = std::filesystem;

constexpr size_t kHeaderBytes = 54;
/// The library keeps 48 bytes for each.
constexpr int64_t kLargestPreviewPixels = int64_t{4096} * 4096;

/// A file that goes with the object.
class TemporaryFile {
  public:
    TemporaryFile()
        : path_(fs::temp_directory_path() /
                ("oglview-" + std::to_string(std::random_device{}()) + ".bmp")) {}
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    std::string name() const { return path_.string(); }
    std::vector<char> bytes() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    fs::path path_;
};

/// Draws through the library's file output, which stores the frame's top row first, where Windows
/// bitmaps have the bottom row; here they are turned the usual way up.
void drawThroughFile(const DrawingView& view, ogl::SCENE* scene, uint32_t drawFlags,
                     DibSection& bitmap) {
    const Picture& picture = bitmap.picture();
    const TemporaryFile file;
    d3_DrawInFile(view.get(), scene, drawFlags, picture.width, picture.height, file.name().c_str());
    const std::vector<char> bytes = file.bytes();
    const size_t row = picture.rowBytes();
    const auto rows = static_cast<size_t>(picture.height);
    if (bytes.size() != kHeaderBytes + row * rows)
        throw UserError("the library has written no picture of this size");
    for (size_t y = 0; y < rows; ++y)
        std::copy_n(bytes.data() + kHeaderBytes + row * (rows - 1 - y), row,
                    reinterpret_cast<char*>(bitmap.pixels()) + row * y);
}

/// Draws the grey preview of rays, which the library shows in windows alone, into the bitmap.
void drawRayPreview(const DrawingView& view, ogl::SCENE* scene, uint32_t drawFlags,
                    DibSection& bitmap) {
    const Picture& picture = bitmap.picture();
    if (int64_t{picture.width} * picture.height > kLargestPreviewPixels)
        throw UserError("a ray-trace preview has at most 4096 x 4096 pixels");
    // The bitmap is not drawn into, but the view's own window takes its size.
    d3_DrawInDibSection(view.get(), scene, drawFlags, bitmap.get());
    d3_DrawInWindow(view.get(), scene, drawFlags, 1, nullptr, bitmap.get());
}

} // namespace

DibSection::DibSection(int width, int height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap_ == nullptr)
        throw UserError("there is no memory for a picture of " + std::to_string(width) + " x " +
                        std::to_string(height) + " pixels");
    pixels_ = static_cast<uint8_t*>(bits);
    picture_ = {width, height, pixels_};
}

void drawPicture(const DrawingView& view, LoadedScene& scene, const StyleOptions& style,
                 DibSection& bitmap, const Progress& progress) {
    applyStyle(scene.builder, style);
    std::optional<FillProgress> filling;
    if (progress.shown())
        filling.emplace(progress, bitmap.pixels(), bitmap.picture().width, bitmap.picture().height);
    const uint32_t flags = drawFlagsOf(style);
    if (style.rayPreview)
        drawRayPreview(view, scene.builder.scene(), flags, bitmap);
    else if (style.throughFile)
        drawThroughFile(view, scene.builder.scene(), flags, bitmap);
    else
        d3_DrawInDibSection(view.get(), scene.builder.scene(), flags, bitmap.get());
}

} // namespace oglview
