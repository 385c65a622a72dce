// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/progress.h"

#include <unistd.h>

namespace oglview {

bool errorOutputIsTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

} // namespace oglview
