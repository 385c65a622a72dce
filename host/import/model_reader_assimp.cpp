// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_reader.h"

#include "host/import/assimp_images.h"
#include "host/import/assimp_scene.h"
#include "host/import/place_model.h"

#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <exception>

namespace ogl::host {
namespace {

/// The first line of the importer's message.
std::string oneLine(std::string text) {
    const size_t end = text.find_first_of("\r\n");
    if (end != std::string::npos)
        text.erase(end);
    return text.empty() ? "the importer gave no reason" : text;
}

std::string readWithImporter(const std::string& path, const ImportOptions& options, Model& model) {
    Assimp::Importer importer;
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE,
                                aiPrimitiveType_POINT | aiPrimitiveType_LINE);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_IFC_SKIP_SPACE_REPRESENTATIONS, !options.keepHelpers);
    const aiScene* scene = importer.ReadFile(path, aiProcess_Triangulate | aiProcess_SortByPType |
                                                       aiProcess_TransformUVCoords);
    if (scene == nullptr)
        return oneLine(importer.GetErrorString());
    readScene(*scene, options, model);
    if (model.objects.empty())
        return "there are no surfaces in it";
    addTextures(imagesOf(*scene, path), model);
    placeModel(path, options, readAxes(*scene), model);
    return {};
}

} // namespace

bool canReadModels(const std::string& extension) {
    return Assimp::Importer().IsExtensionSupported("." + extension);
}

std::string readModel(const std::string& path, const ImportOptions& options, Model& model) {
    model = {};
    try {
        return readWithImporter(path, options, model);
    } catch (const std::exception& error) {
        model = {};
        return oneLine(error.what());
    }
}

} // namespace ogl::host
