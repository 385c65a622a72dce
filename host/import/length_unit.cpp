// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/length_unit.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iterator>

namespace ogl::host {
namespace {

struct NamedUnit {
    std::string_view name;
    double metres;
};
constexpr NamedUnit kUnits[] = {
    {"m", 1.0}, {"cm", 0.01}, {"mm", 0.001}, {"in", 0.0254}, {"ft", 0.3048}};

constexpr double kWidestInMetres = 100.0;
constexpr double kTallestInMetres = 40.0;
constexpr double kWidestInCentimetres = 10000.0;

} // namespace

std::optional<double> metresPerUnit(std::string_view unit) {
    const auto* found = std::ranges::find(kUnits, unit, &NamedUnit::name);
    if (found == std::end(kUnits))
        return std::nullopt;
    return found->metres;
}

std::string nameOfUnit(double metres) {
    for (const NamedUnit& unit : kUnits)
        if (std::abs(metres - unit.metres) <= 1e-6 * unit.metres)
            return std::string(unit.name);
    char text[40];
    std::snprintf(text, sizeof text, "%.6g m", metres);
    return text;
}

std::string guessLengthUnit(const Vec3& size) {
    const double largest = std::max({size.x, size.y, size.z});
    if (largest > kWidestInCentimetres)
        return "mm";
    const bool couldBeMetres = largest <= kWidestInMetres && size.z <= kTallestInMetres;
    return couldBeMetres ? "m" : "cm";
}

std::string lengthUnitOfFormat(std::string_view extension) {
    if (extension == "ifc" || extension == "ifczip" || extension == "gltf" || extension == "glb" ||
        extension == "dae" || extension == "zae" || extension == "x3d" || extension == "wrl" ||
        extension == "blend")
        return "m"; // the importer brings IFC and COLLADA to metres
    if (extension == "3mf" || extension == "amf")
        return "mm";
    return {};
}

bool formatIsZUp(std::string_view extension) {
    return extension == "stl" || extension == "ply" || extension == "3mf" || extension == "amf" ||
           extension == "off" || extension == "blend";
}

std::string extensionOf(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    if (!extension.empty())
        extension.erase(0, 1);
    std::ranges::transform(extension, extension.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return extension;
}

} // namespace ogl::host
