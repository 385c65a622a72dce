// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

namespace ogl::test {

/// A surface of mode 7 under the sun.
struct ForwardSurface {
    double up;      ///< z of its unit normal
    double cosine;  ///< between its normal and the direction to the sun
    double ambient; ///< the scene's ambient light
    double lit;     ///< share of the sun that arrives, 0 .. 1

    /// A channel of the picture, 0 .. 255, for the material's and the light record's channels.
    int shaded(double material, double sun) const {
        const double direct = std::max(cosine, 0.0) * lit;
        const double indirect = std::max(cosine + 1.0, 0.0) / 4.0 * 0.125;
        const double light =
            ((up + 1.0) / 4.0 + 0.25) * 4.0 * ambient + 4.0 * sun * (indirect + direct);
        const double screen = std::pow(std::pow(material, 1.8) * light, 1.0 / 1.8);
        return static_cast<int>(std::lround(std::min(screen, 1.0) * 255.0));
    }
};

} // namespace ogl::test
