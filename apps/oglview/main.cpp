// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/import_model.h"
#include "oglview/subcommand.h"
#include "oglview/user_error.h"
#include "platform/win32.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <new>
#include <string>

namespace {

using namespace oglview;

constexpr const char* kDescription =
    "Draws models of buildings with the ogl rendering library.\n\n"
    "MODEL is a built-in sample (flat) or a file: IFC, glTF, OBJ, FBX, COLLADA, 3DS, STL, PLY and\n"
    "what else the import library reads. Models are drawn in metres with z up. IFC, glTF and\n"
    "COLLADA files say what they mean. Where a file names no unit, its size decides: up to 100\n"
    "units wide and 40 high are metres, up to 10,000 centimetres, more millimetres. STL, PLY, "
    "OFF,\n"
    "AMF and 3MF files have z up, all others y. --unit and --up say otherwise.";

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

/// The first line of a message of the command-line library.
std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

/// Does what the command line says. Throws UserError.
int run(int argc, const char* const* argv) {
    CLI::App app(kDescription, "oglview");
    app.set_version_flag("--version", "oglview " OGLVIEW_VERSION);
    app.require_subcommand(1);
    Work work;
    for (Subcommand (*const subcommand)() : kSubcommands) {
        const auto [name, help, addTo] = subcommand();
        CLI::App& command = *app.add_subcommand(name, help);
        command.callback([&work, named = addTo(command)] { work = named; });
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error); // prints the help or the version that was asked for
        throw UserError(firstLine(error.what()) + " (oglview --help tells more)");
    }
    const std::string program = programFile();
    loadTraceModule(program);
    return work(program);
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
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        return fail("there is not enough memory");
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
