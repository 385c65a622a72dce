// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/drawing_view.h"

#include "oglview/sky_textures.h"
#include "oglview/user_error.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

namespace oglview {
namespace {

namespace fs = std::filesystem;

/// The library cuts paths at backslashes.
std::string libraryPath(const fs::path& path) {
    std::string text = path.string();
    std::ranges::replace(text, '/', '\\');
    return text;
}

fs::path newTemporaryFolder() {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::error_code error;
        fs::path path = fs::temp_directory_path(error) / ("oglview-" + std::to_string(random()));
        if (!error && fs::create_directory(path, error))
            return path;
    }
    throw UserError("cannot make a folder for temporary files");
}

/// The keys of the log's "Error" section.
std::string errorsOfLog(const fs::path& log) {
    std::ifstream file(log);
    std::string errors;
    bool inErrors = false;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.starts_with('['))
            inErrors = line.starts_with("[Error]");
        const std::string key = line.substr(0, line.find('='));
        const size_t end = key.find_last_not_of(" \t");
        if (!inErrors || line.starts_with('[') || end == std::string::npos ||
            key.starts_with("Keyboard mouse problem")) // of every view made without input devices
            continue;
        errors += (errors.empty() ? "" : "; ") + key.substr(0, end + 1);
    }
    return errors;
}

} // namespace

/// Where "space.ini" is read and "ogl.log" written.
class DrawingView::Folder {
  public:
    explicit Folder(const LibraryOptions& options) {
        if (!options.iniPath.empty()) {
            ini_ = fs::absolute(options.iniPath);
            if (!std::ifstream(ini_))
                throw UserError("cannot read '" + options.iniPath + "'");
            return;
        }
        own_ = newTemporaryFolder();
        ini_ = own_ / "space.ini";
        std::ofstream(ini_) << "[OpenGL]\nnumAASamplesDrawing=" << options.samples
                            << "\nnumAASamplesPhoto=" << options.photoSamples
                            << "\nuseFXAA=" << (options.fxaa ? 1 : 0)
                            << "\nenableGPUrt=" << (options.rayTracing ? 1 : 0)
                            << "\n[Veldra]\nTexturesDir=" << libraryPath(own_) << "\n";
        if (options.surroundings)
            writeSkyTextures(own_.string());
    }
    ~Folder() {
        std::error_code ignored;
        if (!own_.empty())
            fs::remove_all(own_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string iniPath() const { return libraryPath(ini_); }
    std::string errors() const { return errorsOfLog(ini_.parent_path() / "ogl.log"); }

  private:
    fs::path own_; ///< empty when the configuration is the user's
    fs::path ini_;
};

DrawingView::DrawingView(HWND window, const LibraryOptions& options)
    : folder_(std::make_unique<Folder>(options)) {
    context_ = d3_Create(window, 0, folder_->iniPath().c_str());
    if (context_ != nullptr)
        return;
    const std::string errors = folder_->errors();
    throw UserError("cannot draw with OpenGL here" + (errors.empty() ? "" : ": " + errors));
}

DrawingView::~DrawingView() {
    d3_Release(context_);
}

void DrawingView::loadTextures(ogl::host::SceneBuilder& builder) {
    for (const auto& load : builder.textureLoads()) {
        const ogl::host::TextureFile& file = *load.file;
        ogl::TextureImage* image = d3_CreateTextureFromFileInMemory(
            context_, file.bytes.data(), static_cast<int>(file.bytes.size()),
            static_cast<int>(file.usage), static_cast<int>(file.type), file.width, file.height,
            file.bitsPerPixel);
        if (image != nullptr)
            ogl::host::SceneBuilder::storeImage(load.slot, image);
    }
}

void DrawingView::releaseScene(ogl::host::SceneBuilder& builder) {
    for (const auto& slot : builder.librarySlots())
        d3_ReleasePointer(context_, slot.slot, slot.releaseKind);
}

} // namespace oglview
