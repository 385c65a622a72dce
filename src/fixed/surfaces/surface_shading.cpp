// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/surface_shading.h"

namespace ogl {

namespace {

/// Maps that the fixed-function pipeline can show: colour (2) and opacity (16).
constexpr unsigned kColorAndOpacityMaps = 18;
constexpr int kAlphaMapUnit = 1;

} // namespace

FixedShading::FixedShading(Renderer& renderer, ColorSetter setColor)
    : renderer_(renderer), setColor_(std::move(setColor)), runs_(renderer.tileVolume) {}

BoundMaterial FixedShading::bindTextures(const MATERIAL& material) {
    int textured = 0;
    int sharedSlot = 0;
    int alphaMap = 0;
    renderer_.bindMaterialTextures(
        material, textured, sharedSlot, alphaMap,
        renderer_.choices.textureMode != TextureMode::None ? kColorAndOpacityMaps : 0);
    return {textured != 0, sharedSlot != 0, alphaMap != 0};
}

void FixedShading::setColor(const MATERIAL& material, const BoundMaterial& bound) {
    setColor_(material, bound.sharedSlot ? 1 : 0, bound.textured ? 1 : 0);
}

void FixedShading::draw(const MeshVertexArray& batch, const BoundMaterial& bound) {
    runs_.texCoordUnit = bound.alphaMap ? kAlphaMapUnit : -1;
    runs_.add(batch);
}

void FixedShading::finish(const BoundMaterial& bound) {
    runs_.flush();
    if (bound.alphaMap)
        MeshVertexArray::unbindTexCoords(kAlphaMapUnit);
}

} // namespace ogl
