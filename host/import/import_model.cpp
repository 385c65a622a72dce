// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/import_model.h"

#include "host/import/child_process.h"
#include "host/import/model_blob.h"
#include "host/import/model_reader.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>

namespace ogl::host {
namespace {

constexpr size_t kWorkerArguments = 5; // file, unit, up axis, helpers, output

std::string whyUnreadable(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return "it is a folder";
    errno = 0;
    if (!std::ifstream(path, std::ios::binary))
        return errno != 0 ? std::strerror(errno) : "it cannot be opened";
    return {};
}

std::string readInChild(const std::string& program, const std::string& path,
                        const ImportOptions& options, Model& model) {
    const ChildResult child =
        runChild(program, {kImportWorkerCommand, path, options.lengthUnit,
                           options.up != 0 ? std::string(1, options.up) : std::string(),
                           options.keepHelpers ? "all" : ""});
    switch (child.end) {
    case ChildResult::End::NotStarted:
        return "the importer could not be started: " + child.detail;
    case ChildResult::End::Crashed:
        return "the importer crashed on it (" + child.detail + ")";
    case ChildResult::End::Exited:
        break;
    }
    if (child.exitCode != 0)
        return "the importer gave up (exit status " + std::to_string(child.exitCode) + ")";
    return unpackModel(child.output, model);
}

} // namespace

std::string importModel(const std::string& program, const std::string& path,
                        const ImportOptions& options, Model& model) {
    model = {};
    std::string problem = whyUnreadable(path);
    if (problem.empty())
        problem = readInChild(program, path, options, model);
    return problem.empty() ? std::string() : "cannot read '" + path + "': " + problem;
}

int importWorker(const std::vector<std::string>& arguments) {
    if (arguments.size() != kWorkerArguments)
        return 2;
    ImportOptions options;
    options.lengthUnit = arguments[1];
    options.up = arguments[2].empty() ? '\0' : arguments[2].front();
    options.keepHelpers = !arguments[3].empty();
    Model model;
    const std::string problem = readModel(arguments[0], options, model);
    const std::vector<std::byte> bytes = problem.empty() ? packModel(model) : packFailure(problem);
    std::ofstream file(arguments[4], std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    return file ? 0 : 1;
}

} // namespace ogl::host
