// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/mesh_runs.h"
#include "ogl/host_records.h"
#include "render/renderer.h"

#include <functional>

namespace ogl {

/// What a material shows once its textures are bound.
struct BoundMaterial {
    bool textured = false;   ///< a colour image
    bool sharedSlot = false; ///< its images come from a shared slot
    bool alphaMap = false;   ///< an opacity map
};

/// How surfaces get their colour: binds a material's textures, sets its colour and draws batches.
class SurfaceShading {
  public:
    virtual ~SurfaceShading() = default;
    virtual BoundMaterial bindTextures(const MATERIAL& material) = 0;
    virtual void setColor(const MATERIAL& material, const BoundMaterial& bound) = 0;
    /// Draws the batch, at the latest in finish().
    virtual void draw(const MeshVertexArray& batch, const BoundMaterial& bound) = 0;
    /// After the last batch of a material.
    virtual void finish(const BoundMaterial& bound) = 0;
};

/// The fixed-function pipeline: the colour image on unit 0, the alpha map on unit 1.
class FixedShading : public SurfaceShading {
  public:
    /// Sets GL's colour for a material: material, sharedSlot, textured.
    using ColorSetter = std::function<void(const MATERIAL&, int, int)>;

    FixedShading(Renderer& renderer, ColorSetter setColor);

    BoundMaterial bindTextures(const MATERIAL& material) override;
    void setColor(const MATERIAL& material, const BoundMaterial& bound) override;
    void draw(const MeshVertexArray& batch, const BoundMaterial& bound) override;
    void finish(const BoundMaterial& bound) override;

  private:
    Renderer& renderer_;
    ColorSetter setColor_;
    MeshRuns runs_;
};

} // namespace ogl
