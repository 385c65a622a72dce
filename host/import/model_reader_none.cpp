// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_reader.h"

namespace ogl::host {

bool canReadModels() {
    return false;
}

std::string readModel(const std::string&, const ImportOptions&, Model&) {
    return "this build reads no model files";
}

} // namespace ogl::host
