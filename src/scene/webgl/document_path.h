// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace ogl {

/// Where an exported document lies, and what follows from it.
class DocumentPath {
  public:
    /// `path`: as the host passed it. Backslashes part folders, in a path without any slashes do;
    /// one without either lies in the current folder.
    explicit DocumentPath(const std::string& path);

    /// The URL of a file beside the document, from the page that lies beside the folder "Sessions":
    /// "Sessions/FOLDER/NAME", as it stands between double quotes in a script. Empty when there is
    /// no such file.
    std::string linkTo(const std::string& name) const;

  private:
    std::string directory_;     ///< without a separator at its end
    std::string sessionFolder_; ///< the last part of the directory
};

} // namespace ogl
