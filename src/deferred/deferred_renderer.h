// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/deferred_programs.h"
#include "fixed/forward/shadow_renderer.h"
#include "gpu/frame_target_set.h"
#include "gpu/per_context.h"

#include <functional>

namespace ogl {

struct FrameView;

/// The photo renderer: opaque surfaces once into a G-buffer, then light by light in image space,
/// the tone curve, and translucent surfaces over it.
class DeferredRenderer : public ShadowRenderer {
  public:
    explicit DeferredRenderer(RenderContext& creator);
    ~DeferredRenderer() override;

    /// The scene's background colour, grey when the drawing flags ask for grey.
    int clearBackground() override;
    int createResources() override;
    void releaseResources() override;
    /// Leaves the framebuffer as it is when the scene has no objects.
    int drawToWindow(const GLSurface& surface) override;
    /// Builds everything anew and shows the scene, during a preview too. In square tiles of the
    /// view's shorter side, each with a wide border for what the passes see around a pixel, when
    /// the bitmap has another size than the view.
    int drawToBitmap(HBITMAP bitmap) override;

    /// The current context's.
    const DeferredPrograms& programs() { return surfaces_.here().programs; }
    /// Called after each pass of a frame; may be empty.
    std::function<void(const char* pass)> passDrawn;
    /// Shadow maps drawn since the renderer was made.
    int shadowMapsDrawn() const { return shadowMapsDrawn_; }

  private:
    void noticeChanges(bool rebuilt);
    void rebuildLights();
    void renderShadowMaps();
    void updateLights();
    void drawFrame(int set, int frameWidth, int frameHeight, bool fxaa);

    /// What each window has for itself.
    struct SurfaceParts {
        DeferredPrograms programs;
        FrameTargetSet targets;
    };
    PerContext<SurfaceParts> surfaces_;
    GLTexture environment_;
    GLTexture seeds_;
    int shadowMapsDrawn_ = 0;
};

} // namespace ogl
