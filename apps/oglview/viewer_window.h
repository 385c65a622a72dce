// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/app_window.h"
#include "oglview/drawing_view.h"
#include "oglview/loaded_scene.h"
#include "oglview/object_marks.h"
#include "oglview/orbit_camera.h"
#include "oglview/style_options.h"

#include <set>
#include <string>

namespace oglview {

/// A window in which a person moves around a scene.
class ViewerWindow {
  public:
    /// Opens the window. Throws UserError when there is no display or no OpenGL.
    ViewerWindow(const Size& size, const LibraryOptions& library, const StyleOptions& style,
                 LoadedScene& scene, const ogl::host::Camera& camera);
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    /// Handles messages and draws until the window is closed.
    void run();

    /// What keys and mouse do, in one line.
    static std::string help();

  private:
    bool handle(UINT message, WPARAM wParam, LPARAM lParam);
    void keyDown(int key);
    void mouseDown(POINT at);
    void mouseMove(WPARAM buttons, POINT at);
    void mouseUp(bool left, bool add);
    void pointAgain(bool walked);
    void restyle(int key);
    void setTitle();
    bool walk(double seconds);
    void draw();

    LoadedScene& scene_;
    StyleOptions style_;
    OrbitCamera camera_;
    ObjectMarks marks_;
    std::set<int> keysDown_;
    POINT pointer_{};
    POINT pressed_{};       ///< where the mouse button went down
    bool dragging_ = false; ///< the pointer has left that place since
    bool pointDue_ = false; ///< what lies under the pointer may have changed
    bool showKeys_ = false;
    bool showPaths_ = false;
    bool showStatistics_ = false;
    bool changed_ = true;
    AppWindow window_; ///< its messages may come as soon as it is open
    DrawingView view_;
};

} // namespace oglview
