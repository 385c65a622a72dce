// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace ogl::test {

/// A fresh folder that goes, with all it holds, when the object does.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }

    /// Path of `name` in the folder, with the system's separators.
    std::string file(const std::string& name) const;

    /// The same with backslashes throughout, as a Windows host would pass it.
    std::string hostFile(const std::string& name) const;

  private:
    std::string path_;
};

/// Replaces the file by `bytes`.
void writeFile(const std::string& path, const std::string& bytes);

/// All bytes of the file; empty when it cannot be read.
std::string readFile(const std::string& path);

/// Changes the current directory until the object goes.
class ScopedCurrentDirectory {
  public:
    explicit ScopedCurrentDirectory(const std::string& path);
    ~ScopedCurrentDirectory();
    ScopedCurrentDirectory(const ScopedCurrentDirectory&) = delete;
    ScopedCurrentDirectory& operator=(const ScopedCurrentDirectory&) = delete;

  private:
    std::string previous_;
};

} // namespace ogl::test
