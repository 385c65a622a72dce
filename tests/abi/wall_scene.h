// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"
#include "support/dib.h"

namespace ogl::test {

/// A wall of 2 x 2 metres, 5 metres in front of the camera, in the middle of a view of 60 degrees.
class WallScene {
  public:
    static constexpr Pixel kPaper{40, 80, 120};
    /// Half the wall's size in units of half the view's height: 1 / (5 tan 30 degrees).
    static constexpr double kHalfSize = 0.34641;

    WallScene();

    SCENE* record() const { return builder_.scene(); }
    CACHEENTRY* cacheEntry() const;
    /// Hands back what the library parked in the record, as a host does before it ends a view.
    void handBack();
    /// An address in the scene's own memory, which the library must never free.
    uint32_t foreignAddress() const;
    void setMode(int mode) { builder_.setRenderMode(mode); }
    void setTooltip(const char* text) { builder_.setTooltip(text, 20, 30); }
    void setViewFlags(uint32_t flags) { builder_.setViewFlags(flags); }
    /// Looks at a point above the wall, which then fills the lower half of the view.
    void raiseCamera();

  private:
    host::SceneBuilder builder_;
};

} // namespace ogl::test
