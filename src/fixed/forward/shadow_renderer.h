// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/drawing/edge_pass.h"
#include "fixed/forward/lit_scene.h"
#include "fixed/forward/program_surface_pass.h"
#include "fixed/surfaces/kept_scenes.h"
#include "fixed/surfaces/surface_shading.h"
#include "gpu/per_context.h"
#include "gpu/render_target.h"
#include "gpu/shader_program.h"
#include "render/program_sources.h"
#include "render/renderer.h"

#include <memory>

namespace ogl {

/// Forward renderer: surfaces lit by the sun of the scene's light list, with a shadow map when the
/// drawing flags ask for shadows; the background image through window openings; edges over them.
/// Files are drawn without programs, with OpenGL's own lighting.
class ShadowRenderer : public Renderer {
  public:
    explicit ShadowRenderer(RenderContext& creator);
    ~ShadowRenderer() override;

    /// The scene's background colour, never grey.
    int clearBackground() override;
    int createResources() override;
    void releaseResources() override;
    int drawToWindow(const GLSurface& surface) override;
    /// In tiles when the bitmap has another size than the view. Draws a plan from above, without
    /// shadows and sky, when the scene's plan view is on. Portals stay those of the scene's last
    /// window frame.
    int drawToBitmap(HBITMAP bitmap) override;
    /// Writes a Windows bitmap of the view's size whose first stored row is the frame's top row.
    /// A path that cannot be written leaves no file and an entry in the log. Returns 1.
    int drawToFile(const char* fileName) override;
    /// Sets GL's current colour for surfaces of the material.
    virtual void setMaterialColor(const MATERIAL& material, int sharedSlot, int textured);

  protected:
    /// What this renderer and those derived from it need, but for programs.
    void createSharedResources();
    /// What is kept of the scene that is drawn.
    LitScene& kept();
    /// Makes the current context's object program in the variant kObjShader or kObjShaderShadow
    /// unless it is there; true when it was made.
    bool buildObjectProgram(ProgramIndex variant);
    /// The current context's object program; null when there is none, or it did not link.
    const ShaderProgram* objectProgram();
    /// Aims the sun as the scene's first light says. Without such a light there is no sun.
    void updateSunLight();
    /// Draws the sun's shadow map if it is due.
    void updateShadows();
    /// Draws the shadow map of any light, in the current context.
    void renderShadowMap(ShadowLight& light);
    void buildPortals();
    /// The background image through the portals, when there is one.
    void drawSky();
    FixedShading fixedShading();

    PerContext<RenderTarget> shadowTargets_;
    GLTexture jitterTexture_;
    ShadowSamples shadowSamples_{};
    ProgramSourceTable programSources_{};

  private:
    struct ObjectProgram {
        std::unique_ptr<ShaderProgram> program;
        bool isLinked = false;
    };
    enum class Lighting {
        Program, ///< the object program, or none when it is missing
        Fixed    ///< OpenGL's own
    };

    void noticeChanges();
    void prepareProgram(bool shadows);
    void drawFrame();
    void drawMeshes(Lighting lighting);
    void drawFixedSurfaces(bool lit);
    EdgeStyle edgeStyleOfFrame() const;
    void drawPlan(HBITMAP bitmap);

    KeptScenes<LitScene> kept_;
    PerContext<ObjectProgram> objectPrograms_;
};

} // namespace ogl
