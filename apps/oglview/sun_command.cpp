// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/sun_moment.h"

#include <nlohmann/json.hpp>

#include <cstdio>

namespace oglview {

int sunCommand(const SunOptions& options) {
    const ogl::SunPosition sun = calculateSun(options.moment);
    const double direction[] = {static_cast<double>(sun.direction.x),
                                static_cast<double>(sun.direction.y),
                                static_cast<double>(sun.direction.z)};
    if (options.json) {
        const nlohmann::ordered_json document = {
            {"zenith", sun.zenith}, {"azimuth", sun.azimuth}, {"direction", direction}};
        std::printf("%s\n", document.dump().c_str());
    } else {
        std::printf("zenith %.5f  azimuth %.5f  direction %.6f %.6f %.6f\n", sun.zenith,
                    sun.azimuth, direction[0], direction[1], direction[2]);
    }
    return 0;
}

} // namespace oglview
