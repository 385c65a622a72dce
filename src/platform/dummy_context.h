// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// A throw-away window with an OpenGL context, current from open() to destruction: extension entry
/// points can only be loaded while some context is current. At most one exists at a time.
class DummyContext {
  public:
    DummyContext() = default;
    ~DummyContext();
    DummyContext(const DummyContext&) = delete;
    DummyContext& operator=(const DummyContext&) = delete;

    /// Whether it succeeded shows in whether a context is current. After a fault in it, what there
    /// is by then still ends with the object.
    void open();

  private:
    static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
    void makeContext();

    static HDC dc_; ///< written by the window procedure, which knows no object
    static HGLRC context_;
    HWND window_ = nullptr;
};

} // namespace ogl
