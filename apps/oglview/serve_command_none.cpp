// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/user_error.h"

namespace oglview {

int serveCommand(const ServeOptions&) {
    throw UserError("this build has no web server; any other one can serve the folder");
}

} // namespace oglview
