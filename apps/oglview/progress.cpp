// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/progress.h"

#include <unistd.h>

#include <cstdio>

namespace oglview {

Progress::Progress(bool wanted) : shown_(wanted || isatty(STDERR_FILENO) != 0) {}

void Progress::step(const std::string& what) const {
    if (shown_)
        std::fprintf(stderr, "oglview: %s\n", what.c_str());
}

} // namespace oglview
