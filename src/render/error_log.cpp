// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/error_log.h"

namespace ogl {

void ErrorLog::open(const std::string& path) {
    path_ = path;
    file_ = std::make_unique<IniFile>(path);
}

bool ErrorLog::write(const std::string& section, const std::string& key, const std::string& value) {
    if (!file_)
        return false;
    file_->setValue(section, key, value, true);
    return file_->save();
}

bool ErrorLog::writeOnce(const std::string& section, const std::string& key,
                         const std::string& value) {
    if (file_ && file_->findKey(file_->findSection(section), key) >= 0)
        return true;
    return write(section, key, value);
}

} // namespace ogl
