// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/subcommand.h"
#include "oglview/sun_moment.h"
#include "scene/sun/sun_position.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <optional>
#include <string>

namespace oglview {
namespace {

struct Sun {
    std::optional<DayAndPlace> moment;
    bool json = false;

    void addTo(CLI::App& command) {
        addMomentOptions(command, moment, MomentUse::Required);
        command.add_flag("--json", json, "Print one JSON object");
    }
    int run(const std::string& program) const;
};

int Sun::run(const std::string&) const {
    const ogl::SunPosition sun = calculateSun(moment.value());
    const double direction[] = {static_cast<double>(sun.direction.x),
                                static_cast<double>(sun.direction.y),
                                static_cast<double>(sun.direction.z)};
    if (json) {
        const nlohmann::ordered_json document = {
            {"zenith", sun.zenith}, {"azimuth", sun.azimuth}, {"direction", direction}};
        std::printf("%s\n", document.dump().c_str());
    } else {
        std::printf("zenith %.5f  azimuth %.5f  direction %.6f %.6f %.6f\n", sun.zenith,
                    sun.azimuth, direction[0], direction[1], direction[2]);
    }
    return 0;
}

} // namespace

Subcommand sunCommand() {
    return makeSubcommand<Sun>("sun", "Tell where the sun stands");
}

} // namespace oglview
