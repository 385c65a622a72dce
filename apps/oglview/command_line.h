// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/options.h"

#include <variant>

namespace oglview {

/// Nothing left to do: help or version was printed.
struct NothingToDo {};

using Request = std::variant<NothingToDo, RenderOptions, ShowOptions, PickOptions, ExportOptions,
                             ServeOptions, SunOptions, InfoOptions, StudyOptions>;

/// Reads the command line. Prints help or version to standard output when asked to. Throws
/// UserError for a command line that it cannot take.
Request readCommandLine(int argc, const char* const* argv);

} // namespace oglview
