// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/drawing_view.h"
#include "oglview/loaded_scene.h"
#include "oglview/object_marks.h"
#include "oglview/options.h"
#include "oglview/orbit_camera.h"
#include "platform/win32.h"

#include <memory>
#include <set>
#include <string>

namespace oglview {

/// A window in which a person moves around a scene.
class ViewerWindow {
  public:
    /// Opens the window. Throws UserError when there is no display or no OpenGL.
    ViewerWindow(const ShowOptions& options, LoadedScene& scene, const ogl::host::Camera& camera);
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    /// Handles messages and draws until the window is closed.
    void run();

    /// What keys and mouse do, in one line.
    static std::string help();

  private:
    static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    void open(const Size& size);
    void keyDown(int key);
    void mouseDown(LPARAM lParam);
    void mouseMove(WPARAM wParam, LPARAM lParam);
    void mouseUp(UINT message, WPARAM wParam);
    void pointAgain();
    bool pointerLeft() const;
    void restyle(int key);
    void setTitle();
    bool walk(double seconds);
    void draw();

    /// Size of the client area; nothing when there is none.
    Size clientSize() const;
    uint32_t viewFlags() const;

    LoadedScene& scene_;
    StyleOptions style_;
    OrbitCamera camera_;
    HWND window_ = nullptr;
    std::unique_ptr<DrawingView> view_;
    std::set<int> keysDown_;
    ObjectMarks marks_;
    POINT pointer_{};
    POINT pressed_{};       ///< where the mouse button went down
    bool dragging_ = false; ///< the pointer has left that place since
    bool pointDue_ = false; ///< what lies under the pointer may have changed
    bool showKeys_ = false;
    bool showPaths_ = false;
    bool showStatistics_ = false;
    bool changed_ = true;
    bool open_ = true;
};

} // namespace oglview
