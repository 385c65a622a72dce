// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/length_unit.h"
#include "host/import/model_reader.h"
#include "host/import/obj_reader.h"

#include <exception>

namespace ogl::host {

bool canReadModels(const std::string& extension) {
    return extension == "obj";
}

std::string readModel(const std::string& path, const ImportOptions& options, Model& model) {
    model = {};
    if (!canReadModels(extensionOf(path)))
        return "this build reads OBJ files only";
    try {
        return readObj(path, options, model);
    } catch (const std::exception& error) {
        model = {};
        return error.what();
    }
}

} // namespace ogl::host
