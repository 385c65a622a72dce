// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/file.h"

#include <algorithm>

namespace ogl {

#ifdef _WIN32

std::FILE* openFile(const char* path, const char* mode) {
    return std::fopen(path, mode);
}

std::string directoryOf(const std::string& path) {
    return path.substr(0, path.rfind('\\') + 1);
}

#else

std::FILE* openFile(const char* path, const char* mode) {
    std::string systemPath = path;
    std::replace(systemPath.begin(), systemPath.end(), '\\', '/');
    return std::fopen(systemPath.c_str(), mode);
}

std::string directoryOf(const std::string& path) {
    return path.substr(0, path.find_last_of("\\/") + 1);
}

#endif

} // namespace ogl
