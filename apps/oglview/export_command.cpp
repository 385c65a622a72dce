// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "ogl/ogl.h"
#include "oglview/commands.h"
#include "oglview/loaded_scene.h"
#include "oglview/texture_picture.h"
#include "oglview/user_error.h"
#include "oglview/view_choice.h"
#include "oglview/web_folder.h"

#include <algorithm>
#include <cstdio>
#include <string>

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

} // namespace

int exportCommand(const std::string& program, const ExportOptions& options) {
    const WebFolder target(options.output);
    const Progress progress(options.model.progress);
    LoadedScene scene = loadScene(program, options.model, progress);

    progress.step("choosing the view");
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    scene.builder.setCamera(chooseCamera(scene, options.view, aspect));
    scene.builder.setViewWindow(options.view.zoomWindow);
    if (options.background) {
        ogl::host::DrawingStyle style;
        style.background = *options.background;
        scene.builder.setDrawingStyle(style);
    }

    progress.step("writing " + options.output);
    target.prepareScene();
    writeTextures(scene.builder, target.sceneFolder());
    if (d3_ExportJS(scene.builder.scene(), hostPath(target.document()).c_str(), options.size.width,
                    options.size.height) == 0)
        throw UserError("cannot write '" + target.document().string() + "'");
    target.writePage(fs::path(program).parent_path() / OGLVIEW_PAGE);
    for (const std::string& note : scene.notes)
        std::fprintf(stderr, "oglview: note: %s\n", note.c_str());
    return 0;
}

} // namespace oglview
