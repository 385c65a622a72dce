// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_files.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace ogl::host {
namespace {

namespace fs = std::filesystem;

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// A file of that name in any spelling, or nothing.
fs::path inAnyCase(const fs::path& path) {
    if (isFile(path))
        return path;
    const std::string wanted = lowered(path.filename().string());
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(path.parent_path(), error))
        if (lowered(entry.path().filename().string()) == wanted && isFile(entry.path()))
            return entry.path();
    return {};
}

/// Names in web formats write blanks and others as %20.
std::string withoutEscapes(const std::string& name) {
    std::string result;
    for (size_t k = 0; k < name.size(); ++k) {
        const bool escaped = name[k] == '%' && k + 2 < name.size() &&
                             std::isxdigit(static_cast<unsigned char>(name[k + 1])) != 0 &&
                             std::isxdigit(static_cast<unsigned char>(name[k + 2])) != 0;
        result += escaped
                      ? static_cast<char>(std::strtol(name.substr(k + 1, 2).c_str(), nullptr, 16))
                      : name[k];
        k += escaped ? 2 : 0;
    }
    return result;
}

fs::path findFile(const fs::path& folder, std::string name) {
    std::ranges::replace(name, '\\', '/');
    for (const std::string& spelling : {name, withoutEscapes(name)})
        for (const fs::path& path : {folder / spelling, folder / fs::path(spelling).filename()}) {
            fs::path found = inAnyCase(path);
            if (!found.empty())
                return found;
        }
    return {};
}

} // namespace

std::string readModelFile(const std::string& folder, const std::string& name,
                          std::vector<uint8_t>& bytes) {
    const fs::path path = findFile(folder.empty() ? fs::path(".") : fs::path(folder), name);
    if (path.empty())
        return "there is no such file";
    std::ifstream file(path, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return file.good() || file.eof() ? std::string() : "it cannot be read";
}

} // namespace ogl::host
