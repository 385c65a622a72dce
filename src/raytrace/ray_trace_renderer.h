// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/per_context.h"
#include "gpu/render_target.h"
#include "gpu/shader_program.h"
#include "gpu/vertex_array.h"
#include "raytrace/packed_scene.h"
#include "raytrace/ray_camera.h"
#include "raytrace/scene_textures.h"
#include "render/renderer.h"

#include <memory>

namespace ogl {

/// Prepares a scene for ray tracing on the graphics card: packs it into textures, builds the
/// programs and keeps a target of the view's size. Its frame shows the packed triangles in one grey
/// on black; tracing is up to whoever takes the parts from here.
class RayTraceRenderer : public Renderer {
  public:
    explicit RayTraceRenderer(RenderContext& creator);
    ~RayTraceRenderer() override;

    /// Packs the scene, if there is one, and builds the programs. A scene that does not fit into
    /// the driver's textures or memory is not packed, and the log says so.
    int createResources() override;
    void releaseResources() override;
    /// Packs the scene again first when it is another one or an object has change mark 0x1.
    int drawToWindow(const GLSurface& surface) override;
    /// Draws nothing. Returns 1.
    int drawToBitmap(HBITMAP bitmap) override;
    /// Draws nothing. Returns 1.
    int drawToFile(const char* fileName) override;

    // What tracing takes.

    const PackedScene& packed() const { return packed_; }
    const SceneTextures& textures() const { return textures_; }
    /// Of the context that was current in createResources(), null before. A program that did not
    /// build is there; GL refuses it.
    const ShaderProgram* traceProgram() const { return traceProgram_.get(); }
    const ShaderProgram* finalProgram() const { return finalProgram_.get(); }
    /// Of the current context: three attachments of four floats a pixel; null before its first
    /// frame and without a size.
    RenderTarget* traceTarget() { return traceTargets_.here().get(); }
    /// Of the last frame.
    const RayCamera& rayCamera() const { return rayCamera_; }

    /// Accumulation step; every pack and every frame sets it to 0.
    int iteration = 0;
    /// Largest side of the textures; 0 = the driver's.
    int textureSideLimit = 0;

  private:
    void packScene();
    void refusePacking(const char* reason);
    void uploadPacked();
    void repackIfChanged();
    void fitTarget();
    void drawPreview();

    PackedScene packed_;
    SceneTextures textures_;
    std::unique_ptr<VertexArray> preview_; ///< the vertices in a GL buffer
    std::unique_ptr<ShaderProgram> traceProgram_;
    std::unique_ptr<ShaderProgram> finalProgram_;
    PerContext<std::unique_ptr<RenderTarget>> traceTargets_;
    RayCamera rayCamera_;
    const SCENE* packedScene_ = nullptr; ///< only compared
};

} // namespace ogl
