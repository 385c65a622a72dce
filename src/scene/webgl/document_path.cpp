// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/document_path.h"

#include "platform/file.h"

#include <filesystem>
#include <memory>
#include <system_error>

namespace ogl {

namespace {

constexpr char kSeparators[] = "\\/";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool isReadable(const std::string& path) {
    return std::unique_ptr<std::FILE, FileCloser>(openFile(path.c_str(), "rb")) != nullptr;
}

std::string currentFolder() {
    std::error_code error;
    return std::filesystem::current_path(error).string();
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
    const size_t end = path.find_last_of(kSeparators);
    directory_ = end != std::string::npos ? path.substr(0, end) : currentFolder();
    // npos + 1 is 0: without a separator all of it is the last part.
    sessionFolder_ = directory_.substr(directory_.find_last_of(kSeparators) + 1);
}

std::string DocumentPath::linkTo(const std::string& name) const {
    if (!isReadable(directory_ + "\\" + name))
        return {};
    return "Sessions/" + quoted(sessionFolder_) + "/" + name;
}

} // namespace ogl
