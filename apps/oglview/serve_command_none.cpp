// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/subcommand.h"
#include "oglview/user_error.h"

#include <CLI/CLI.hpp>

namespace oglview {
namespace {

/// Refuses, whatever it is asked for.
struct Serve {
    void addTo(CLI::App& command) { command.allow_extras(); }
    int run(const std::string&) const {
        throw UserError("this build has no web server; any other one can serve the folder");
    }
};

} // namespace

Subcommand serveCommand() {
    return makeSubcommand<Serve>("serve", "Show exported models in this machine's browser");
}

} // namespace oglview
