// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/deferred_programs.h"
#include "deferred/light_list.h"
#include "deferred/light_pass.h"
#include "fixed/surfaces/draw_lists.h"
#include "render/renderer.h"

#include <functional>

namespace ogl {

/// The lights of a frame.
struct FrameLights {
    const SunLight* sun; ///< may be null
    const LightList& list;
    ShadowStyle shadows;
};

/// A whole picture of the scene, for the camera that is set, into the framebuffer that is bound,
/// whose depth must be clear. Afterwards that holds the opaque surfaces' depth.
struct FramePasses {
    const Renderer& renderer;
    const DrawLists& meshes;
    const DeferredPrograms& programs;
    const FrameView& frame;
    const FrameLights& lights;
    const GLTexture& seeds;                            ///< of createSeedTexture()
    const GLTexture& environment;                      ///< may not exist
    std::function<void()> drawSky;                     ///< behind the surfaces; may be empty
    bool fxaa = false;                                 ///< smooths edges at the end
    std::function<void(const char* pass)> passed = {}; ///< called after each pass; may be empty

    void draw() const;

  private:
    void drawSurfaces() const;
    void drawLight() const;
    bool isLitEvenly() const;
    void clearLight() const;
    void drawPicture() const;
    void note(const char* pass) const;
};

} // namespace ogl
