// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/image_decoder.h"
#include "host/import/model.h"

#include <functional>

namespace ogl::host {

/// Gets a picture by the name that a model uses. Returns an empty string, or why not, in one line.
using ImageSource = std::function<std::string(const std::string& name, DecodedImage& image)>;

/// The picture files that lie where the model in the file `modelPath` says, or beside it.
ImageSource imagesBeside(const std::string& modelPath);

/// Makes the model's textures from the pictures that its materials name, and gives the materials
/// their numbers. A picture that cannot be had leaves a line in the model's warnings; its
/// materials show their colour.
void addTextures(const ImageSource& source, Model& model);

} // namespace ogl::host
