// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/document_path.h"

#include "platform/file.h"

#include <filesystem>
#include <system_error>

namespace ogl {

namespace {

bool isReadable(const std::string& path) {
    return FileHandle(openFile(path.c_str(), "rb")) != nullptr;
}

/// A bare name lies in the current folder.
std::string withFolder(const std::string& path) {
    if (path.find_first_of("\\/") != std::string::npos)
        return path;
    std::error_code error;
    return (std::filesystem::current_path(error) / path).string();
}

/// The text between double quotes of a script. Names with such characters do not exist on Windows.
std::string quoted(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        if (c == '\n' || c == '\r')
            result += c == '\n' ? "\\n" : "\\r";
        else
            result += c;
    }
    return result;
}

} // namespace

DocumentPath::DocumentPath(const std::string& path) {
    const std::string whole = withFolder(path);
    const char separator = whole.find('\\') != std::string::npos ? '\\' : '/';
    directory_ = whole.substr(0, whole.rfind(separator));
    // npos + 1 is 0: without a separator all of it is the last part.
    sessionFolder_ = directory_.substr(directory_.rfind(separator) + 1);
}

std::string DocumentPath::linkTo(const std::string& name) const {
    if (!isReadable(directory_ + "\\" + name))
        return {};
    return "Sessions/" + quoted(sessionFolder_) + "/" + name;
}

} // namespace ogl
