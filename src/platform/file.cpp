// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/file.h"

#include <algorithm>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace ogl {

namespace {

#ifdef _WIN32

constexpr const char* kSeparators = "\\";

std::string systemPathOf(const char* path) {
    return path;
}

bool isOrdinaryFile(const std::string&) {
    return true; // others cannot be removed
}

#else

constexpr const char* kSeparators = "\\/";

std::string systemPathOf(const char* path) {
    std::string systemPath = path;
    std::replace(systemPath.begin(), systemPath.end(), '\\', '/');
    return systemPath;
}

bool isOrdinaryFile(const std::string& systemPath) {
    struct stat status {};
    return stat(systemPath.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

#endif

} // namespace

std::FILE* openFile(const char* path, const char* mode) {
    return std::fopen(systemPathOf(path).c_str(), mode);
}

void removeFile(const char* path) {
    const std::string systemPath = systemPathOf(path);
    if (isOrdinaryFile(systemPath))
        std::remove(systemPath.c_str());
}

std::string directoryOf(const std::string& path) {
    return path.substr(0, path.find_last_of(kSeparators) + 1);
}

} // namespace ogl
