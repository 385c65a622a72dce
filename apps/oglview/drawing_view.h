// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"
#include "ogl/ogl.h"

#include <memory>
#include <string>

namespace oglview {

/// How the library is configured.
struct LibraryOptions {
    std::string iniPath; ///< the user's "space.ini"; empty = one made for this run
    // For the one made here:
    int samples = 8;          ///< per pixel of windows
    int photoSamples = 4;     ///< per pixel in photo mode
    bool rayTracing = false;  ///< mode 8 shows the ray-trace preview
    bool fxaa = false;        ///< smooth what photo mode has drawn
    bool surroundings = true; ///< what windows show and surfaces mirror
};

/// A view of the library (what d3_Create returns) and the folder of its configuration and log.
class DrawingView {
  public:
    /// `window`: the window to draw in, or null to draw into bitmaps only. Throws UserError with
    /// the log's words when the library cannot make the view.
    DrawingView(HWND window, const LibraryOptions& options);
    ~DrawingView();
    DrawingView(const DrawingView&) = delete;
    DrawingView& operator=(const DrawingView&) = delete;

    /// Hands the scene's texture files to the library. Call once before drawing a scene.
    void loadTextures(ogl::host::SceneBuilder& builder);
    /// Takes back what the library parked in the scene. Call before the scene goes.
    void releaseScene(ogl::host::SceneBuilder& builder);

    ogl::RenderContext* get() const { return context_; }

  private:
    class Folder;
    std::unique_ptr<Folder> folder_;
    ogl::RenderContext* context_ = nullptr;
};

} // namespace oglview
