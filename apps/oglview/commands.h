// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the subcommands do. Each returns the exit status or throws UserError. `program` is this
// program's own file.
#pragma once

#include "oglview/options.h"

namespace oglview {

int renderCommand(const std::string& program, const RenderOptions& options);
int showCommand(const std::string& program, const ShowOptions& options);
int exportCommand(const std::string& program, const ExportOptions& options);
int serveCommand(const ServeOptions& options);
int infoCommand(const std::string& program, const InfoOptions& options);
int sunStudyCommand(const std::string& program, const StudyOptions& options);
int sunCommand(const SunOptions& options);
int pickCommand(const std::string& program, const PickOptions& options);

} // namespace oglview
