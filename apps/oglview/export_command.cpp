// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "ogl/ogl.h"
#include "oglview/add_option.h"
#include "oglview/image_file.h"
#include "oglview/loaded_scene.h"
#include "oglview/subcommand.h"
#include "oglview/texture_picture.h"
#include "oglview/user_error.h"
#include "oglview/view_choice.h"
#include "oglview/web_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace oglview {
namespace {

namespace fs = std::filesystem;

std::string hostPath(const fs::path& path) {
    std::string text = path.string();
    std::ranges::replace(text, '/', '\\');
    return text;
}

/// Writes the textures of the used materials under the names that the document's links have.
void writeTextures(const ogl::host::SceneBuilder& builder, const fs::path& folder) {
    const ogl::LIST list = builder.scene()->geometry.materials;
    const auto* materials = static_cast<const ogl::MATERIAL*>(list.data.get());
    const auto& textures = builder.textures();
    for (int m = 0; m < list.count; ++m) {
        const int texture = materials[m].textureIndex;
        if (materials[m].useCount == 0 || texture < 0 ||
            static_cast<size_t>(texture) >= textures.size())
            continue;
        if (const auto image = texturePicture(textures[static_cast<size_t>(texture)]))
            writePng((folder / ("dec" + std::to_string(m) + ".png")).string(), *image);
    }
}

/// Whether the document has its last line: the library does not notice a disk that fills up.
bool isWhole(const fs::path& document) {
    constexpr std::string_view kLastLine = "initRenderer( );\r\n";
    std::string end(kLastLine.size(), '\0');
    std::ifstream file(document, std::ios::binary);
    file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
    return file.read(end.data(), static_cast<std::streamsize>(end.size())) && end == kLastLine;
}

struct Export {
    ModelOptions model;
    ViewOptions view;
    std::string output; ///< FOLDER/Sessions/NAME/scene.js
    std::optional<ogl::host::Color> background;
    Size size{1280, 800};

    void addTo(CLI::App& command);
    int run(const std::string& program) const;
};

void Export::addTo(CLI::App& command) {
    addModelOptions(command, model);
    command
        .add_option("OUTPUT", output, "FOLDER/Sessions/NAME/scene.js; the page goes into FOLDER")
        ->required();
    addSize(command, size, "Size of the view in pixels (1280x800)");
    addViewOptions(command, view);
    addText(command, "--background", background, parseColor, "Background of the page")
        ->type_name("RRGGBB");
}

int Export::run(const std::string& program) const {
    const WebFolder target(output);
    const Progress progress(model.progress);
    LoadedScene scene = loadScene(program, model, progress);

    progress.step("choosing the view");
    setView(scene, view, size);
    if (background) {
        ogl::host::DrawingStyle style;
        style.background = *background;
        scene.builder.setDrawingStyle(style);
    }

    progress.step("writing " + output);
    target.prepareScene();
    writeTextures(scene.builder, target.sceneFolder());
    const bool opened = d3_ExportJS(scene.builder.scene(), hostPath(target.document()).c_str(),
                                    size.width, size.height) != 0;
    if (!opened || !isWhole(target.document())) {
        std::error_code ignored;
        fs::remove(target.document(), ignored);
        throw UserError("cannot write '" + target.document().string() + "'");
    }
    target.writePage(fs::path(program).parent_path() / OGLVIEW_PAGE);
    printNotes(scene);
    return 0;
}

} // namespace

Subcommand exportCommand() {
    return makeSubcommand<Export>("export", "Write a model as a page for web browsers");
}

} // namespace oglview
