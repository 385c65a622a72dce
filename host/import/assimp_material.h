// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/model.h"

struct aiMaterial;

namespace ogl::host {

/// The surface finish that an imported material describes.
ModelMaterial readMaterial(const aiMaterial& material);

/// The set of texture coordinates that the material's colour image is laid out with.
unsigned textureChannel(const aiMaterial& material);

} // namespace ogl::host
