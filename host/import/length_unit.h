// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Which unit and which axis a model file means.
#pragma once

#include "host/import/model.h"

#include <optional>
#include <string>
#include <string_view>

namespace ogl::host {

/// Metres per unit of "m", "cm", "mm", "in" or "ft"; none for other names.
std::optional<double> metresPerUnit(std::string_view unit);

/// The name of a unit of so many metres: one of those above, or "0.5 m" for others.
std::string nameOfUnit(double metres);

/// The unit of a file that doesn't name one, from the size of what is in it (`size` in the file's
/// units, z up). Buildings and furniture are what this program is for: up to 100 units wide and 40
/// high are taken for metres, up to 10,000 for centimetres, more for millimetres.
std::string guessLengthUnit(const Vec3& size);

/// The unit that the format itself fixes ("m" for IFC and glTF, ...), by the file's extension in
/// lower case without the dot; empty for formats that leave it open.
std::string lengthUnitOfFormat(std::string_view extension);

/// Whether files with this extension have z up. All others are y up as they leave the importer.
bool formatIsZUp(std::string_view extension);

/// The extension of a path in lower case without the dot.
std::string extensionOf(const std::string& path);

} // namespace ogl::host
