// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace oglview {

/// A folder for a web server: the viewer page, and beside it the folder Sessions with one folder
/// per exported scene.
class WebFolder {
  public:
    /// `document`: FOLDER/Sessions/NAME/scene.js. Throws UserError for any other form.
    explicit WebFolder(const std::string& document);

    /// Makes the scene's folder and takes away what an earlier export left in it: the document and
    /// its textures.
    void prepareScene() const;
    /// Copies the viewer page from `source` and lists the scenes, this one last.
    void writePage(const std::filesystem::path& source) const;

    const std::filesystem::path& folder() const { return folder_; }
    const std::filesystem::path& sceneFolder() const { return sceneFolder_; }
    std::filesystem::path document() const;
    std::string sceneName() const { return sceneFolder_.filename().string(); }

  private:
    void writeSceneList() const;

    std::filesystem::path sceneFolder_;
    std::filesystem::path folder_;
};

} // namespace oglview
