// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/settings.h"

#include "platform/ini_file.h"

#include <algorithm>

namespace ogl {

void RangedValue::set(float newValue) {
    value = std::clamp(newValue, lower, upper);
}

bool Settings::load(const std::string& path) {
    *this = Settings();
    IniFile file(path);
    if (!file.parse())
        return false;
    enableGPUrt = file.getInt("OpenGL", "enableGPUrt", 0) == 1 ? 1 : 0;
    useFXAA = file.getInt("OpenGL", "useFXAA", 0) == 1 ? 1 : 0;
    drawingSamples.set(static_cast<float>(file.getInt("OpenGL", "numAASamplesDrawing", 0)));
    photoSamples.set(static_cast<float>(file.getInt("OpenGL", "numAASamplesPhoto", 0)));
    texturesDir = file.getString("Veldra", "TexturesDir", "C:\\Veldra\\Textures");
    return true;
}

} // namespace ogl
