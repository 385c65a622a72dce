// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/surface_shading.h"
#include "gpu/shader_program.h"
#include "math/vector3.h"

namespace ogl {

/// Maps of a material, as bits of a mask.
inline constexpr unsigned kDiffuseMap = 0x2;
inline constexpr unsigned kNormalMap = 0x4;
inline constexpr unsigned kSpecularMap = 0x8;
inline constexpr unsigned kOpacityMap = 0x10;

/// The colour (red, green, blue, alpha) of surfaces of a material in the programs. `textured`,
/// `opacityMap`: it has a colour image, an opacity map.
Vec4 programColor(const MATERIAL& material, TextureMode textureMode, ColorMode colorMode,
                  bool textured, bool opacityMap);

/// Binds the maps of the mask on units 0 (diffuse) to 3 (opacity) for the program, which is in use,
/// and tells it which there are. Units of maps that there are none of are turned off; with an empty
/// mask or textures off no unit is touched.
BoundMaterial bindProgramTextures(const Renderer& renderer, const ShaderProgram& program,
                                  const MATERIAL& material, unsigned mask);

/// Tells the program the material's colour and how it reflects.
void setProgramMaterial(const Renderer& renderer, const ShaderProgram& program,
                        const MATERIAL& material, const BoundMaterial& bound);

/// Shades surfaces with a program.
class ProgramShading : public SurfaceShading {
  public:
    /// `mask`: the maps that the program reads.
    ProgramShading(const Renderer& renderer, const ShaderProgram& program, unsigned mask)
        : renderer_(renderer), program_(program), mask_(mask), runs_(renderer.tileVolume) {}

    BoundMaterial bindTextures(const MATERIAL& material) override;
    void setColor(const MATERIAL& material, const BoundMaterial& bound) override;
    void draw(const MeshVertexArray& batch, const BoundMaterial& bound) override;
    void finish(const BoundMaterial& bound) override;

  private:
    const Renderer& renderer_;
    const ShaderProgram& program_;
    unsigned mask_;
    MeshRuns runs_;
    int lit_ = -1; ///< what the program was last told; -1 = nothing yet
};

} // namespace ogl
