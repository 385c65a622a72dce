// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/import_model.h"
#include "oglview/command_line.h"
#include "oglview/commands.h"
#include "oglview/user_error.h"
#include "platform/win32.h"

#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <vector>

namespace {

std::string programFile() {
    std::string path(4096, '\0');
    path.resize(GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

/// Loads the program's trace module. The library, which looks for it by its name, then finds it.
void loadTraceModule(const std::string& program) {
    const size_t folder = program.find_last_of("/\\") + 1;
    LoadLibraryA((program.substr(0, folder) + OGLVIEW_TRACE_MODULE).c_str());
}

int runRequest(const oglview::Request& request) {
    const std::string program = programFile();
    loadTraceModule(program);
    if (const auto* render = std::get_if<oglview::RenderOptions>(&request))
        return oglview::renderCommand(program, *render);
    if (const auto* show = std::get_if<oglview::ShowOptions>(&request))
        return oglview::showCommand(program, *show);
    if (const auto* exported = std::get_if<oglview::ExportOptions>(&request))
        return oglview::exportCommand(program, *exported);
    if (const auto* serve = std::get_if<oglview::ServeOptions>(&request))
        return oglview::serveCommand(*serve);
    if (const auto* info = std::get_if<oglview::InfoOptions>(&request))
        return oglview::infoCommand(program, *info);
    if (const auto* sun = std::get_if<oglview::SunOptions>(&request))
        return oglview::sunCommand(*sun);
    if (const auto* study = std::get_if<oglview::StudyOptions>(&request))
        return oglview::sunStudyCommand(program, *study);
    if (const auto* pick = std::get_if<oglview::PickOptions>(&request))
        return oglview::pickCommand(program, *pick);
    return 0;
}

int fail(const char* message) {
    std::fprintf(stderr, "oglview: %s\n", message);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc > 1 && std::string(argv[1]) == ogl::host::kImportWorkerCommand)
            return ogl::host::importWorker({argv + 2, argv + argc});
        return runRequest(oglview::readCommandLine(argc, argv));
    } catch (const oglview::UserError& error) {
        return fail(error.what());
    } catch (const std::bad_alloc&) {
        return fail("there is not enough memory");
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
