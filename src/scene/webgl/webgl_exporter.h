// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <string>

namespace ogl {

/// The shaders that every document holds.
struct WebGLShaders {
    std::string objectVertex;
    std::string objectFragment;
    std::string depthVertex;
    std::string depthFragment;
};

/// The shaders as the library carries them.
WebGLShaders loadWebGLShaders();

/// Writes scenes as JavaScript documents for the viewer page. Needs no view and no OpenGL.
class WebGLExporter {
  public:
    explicit WebGLExporter(const WebGLShaders& shaders = loadWebGLShaders());

    /// Writes the document at `path`, replacing a file that is there. `width`, `height`: of the
    /// view, pixels. False when it cannot be opened; errors while it is written are not noticed.
    ///
    /// Textures are linked by the names "Sessions/FOLDER/..." when they lie beside the document;
    /// FOLDER is the name of the document's folder. Slashes part folders in a path without
    /// backslashes; a path without either means the current folder.
    bool write(const SCENE& scene, const std::string& path, int width, int height) const;

  private:
    WebGLShaders shaders_; ///< without line ends
};

} // namespace ogl
