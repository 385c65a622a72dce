// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/progress.h"

#include <cstdio>

namespace oglview {

void Progress::step(const std::string& what) const {
    if (shown_)
        std::fprintf(stderr, "oglview: %s\n", what.c_str());
}

} // namespace oglview
