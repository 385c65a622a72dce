// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace ogl {

/// A number with bounds.
struct RangedValue {
    float value;
    float lower;
    float upper;
    std::string name;

    /// Stores `newValue` clamped into the bounds.
    void set(float newValue);
};

/// The options of the configuration file.
struct Settings {
    int useFXAA = 0;                                   ///< 1 = on
    int enableGPUrt = 0;                               ///< 1 = ray-trace preview in mode 8
    RangedValue drawingSamples{4.0f, 1.0f, 16.0f, {}}; ///< samples per pixel of windows
    RangedValue photoSamples{1.0f, 1.0f, 16.0f, {}};   ///< samples of multisampled targets
    std::string texturesDir;                           ///< folder of the texture files

    /// Reads the file at `path`. Returns false, with the defaults in place, when it cannot be read
    /// or has no section.
    bool load(const std::string& path);
};

} // namespace ogl
