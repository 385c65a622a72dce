// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/file_drawing.h"

#include "oglview/user_error.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace oglview {
namespace {

namespace fs = std::filesystem;

constexpr size_t kHeaderBytes = 54;

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

} // namespace

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

} // namespace oglview
