// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ini_file.h"

#include <memory>
#include <string>

namespace ogl {

/// An entry of all that makes textures.
inline constexpr const char* kImageTooLarge = "Image too large for the driver";

/// The log: an INI file in which every message is a key, so that the same message twice keeps one
/// entry. The whole file is written after each entry; its contents of an earlier run are lost with
/// the first one.
class ErrorLog {
  public:
    /// Starts an empty log for the file at `path`. Nothing is written yet.
    void open(const std::string& path);

    /// Stores an entry and saves the file. Returns false when the log was not opened or cannot be
    /// written; the entry is then kept and tried again with the next one.
    bool write(const std::string& section, const std::string& key, const std::string& value);

    /// The same, unless the log holds the entry already: for what every frame would report anew.
    bool writeOnce(const std::string& section, const std::string& key, const std::string& value);

    const std::string& path() const { return path_; }

  private:
    std::unique_ptr<IniFile> file_;
    std::string path_;
};

} // namespace ogl
