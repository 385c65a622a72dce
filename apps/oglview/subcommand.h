// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The words of the command line. Each lives in a file of its own, with its options and what it does
// with them; here stands only that there is one.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace CLI {
class App;
}

namespace oglview {

/// Does what the options say, once they are read. `program`: this program's own file. Returns the
/// exit status or throws UserError.
using Work = std::function<int(const std::string& program)>;

struct Subcommand {
    const char* name;
    const char* help; ///< one line
    /// Adds the options; the work keeps what they are read into.
    Work (*addTo)(CLI::App& command);
};

/// A subcommand whose options are a struct that adds them, `addTo`, and does the work, `run`.
template <class Options> Subcommand makeSubcommand(const char* name, const char* help) {
    return {name, help, [](CLI::App& command) -> Work {
                const auto options = std::make_shared<Options>();
                options->addTo(command);
                return [options](const std::string& program) { return options->run(program); };
            }};
}

Subcommand renderCommand();
Subcommand showCommand();
Subcommand exportCommand();
Subcommand serveCommand();
Subcommand infoCommand();
Subcommand pickCommand();
Subcommand sunCommand();
Subcommand sunStudyCommand();

/// In the order of the help.
inline constexpr Subcommand (*kSubcommands[])() = {
    renderCommand, showCommand, exportCommand, serveCommand,
    infoCommand,   pickCommand, sunCommand,    sunStudyCommand,
};

} // namespace oglview
