// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/temp_folder.h"

#include "support/system.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace ogl::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    // A number that is taken was left by a program that was killed, whose id came back.
    static int number = 0;
    fs::path folder;
    do {
        const std::string name =
            "ogl-test-" + std::to_string(processId()) + "-" + std::to_string(number++);
        folder = fs::temp_directory_path() / name;
    } while (!fs::create_directory(folder) && number < 100000);
    path_ = folder.string();
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempFolder::file(const std::string& name) const {
    return (fs::path(path_) / name).string();
}

std::string TempFolder::hostFile(const std::string& name) const {
    std::string path = file(name);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush())
        throw std::runtime_error("cannot write " + path);
}

std::string readFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

ScopedCurrentDirectory::ScopedCurrentDirectory(const std::string& path)
    : previous_(fs::current_path().string()) {
    fs::current_path(path);
}

ScopedCurrentDirectory::~ScopedCurrentDirectory() {
    std::error_code ignored;
    fs::current_path(previous_, ignored);
}

} // namespace ogl::test
