// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/model.h"

struct aiMaterial;

namespace ogl::host {

/// The surface finish that an imported material describes.
ModelMaterial readMaterial(const aiMaterial& material);

} // namespace ogl::host
