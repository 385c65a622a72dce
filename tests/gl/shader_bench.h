// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gl/gl_fixture.h"
#include "gpu/render_target.h"
#include "render/program_sources.h"

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace ogl::test {

using Texel = std::array<float, 4>;

/// What the G-buffer holds of one sample.
struct Surface {
    Vec3 place{0, 0, 0};
    float shininess = 10.0f;
    Vec3 normal{0, 0, 1}; ///< unit length
    float id = 1.0f;
    float specular = 0.0f;
    Vec3 diffuse{1, 1, 1};
    float reflection = 0.0f;
};

/// A sample that no surface covers, before a white background.
Surface uncovered();

/// Runs the library's programs over pictures of a few pixels whose inputs the test makes, in full
/// precision: the same formula on the CPU must give the same numbers.
class ShaderBench : public GLTest {
  protected:
    static constexpr float kTolerance = 2e-4f;

    void SetUp() override;
    void TearDown() override;

    /// The size of the pictures; at first 8 x 1.
    void setSize(int newWidth, int newHeight);
    /// Fills the G-buffer, one list of width x height surfaces for each sample, bottom row first.
    void fillGBuffer(const std::vector<std::vector<Surface>>& samples);
    /// The same for a target of the picture's size with three attachments.
    void writeSurfaces(RenderTarget& target, const std::vector<std::vector<Surface>>& samples);
    /// Writes a picture into an attachment of a target without samples.
    void writeTexels(RenderTarget& target, int attachment, const std::vector<Texel>& texels);
    /// The pixels of an attachment of a target without samples.
    std::vector<Texel> texelsOf(RenderTarget& target, int attachment) const;
    /// Makes a texture of full-precision texels: GL_TEXTURE_2D or GL_TEXTURE_RECTANGLE.
    static GLTexture makeTexture(unsigned target, int width, int height,
                                 const std::vector<Texel>& texels);
    /// The same, of the picture's size and in one value.
    GLTexture plainTexture(unsigned target, Texel value) const;
    /// Binds the G-buffer's attachment `index` on the unit.
    void bindGBuffer(int unit, int index) const;
    /// Builds a program and takes it into use.
    ShaderProgram& use(ProgramIndex index);
    /// Draws a full-screen quad with the program in use; the pixels, bottom row first.
    std::vector<Texel> draw();
    /// Draws something with the program in use over pixels of kClear; the pixels of each output.
    std::array<std::vector<Texel>, 3> drawOutputs(const std::function<void()>& geometry);
    static constexpr Texel kClear{-1, -2, -3, -4};
    size_t pixels() const { return static_cast<size_t>(width_) * static_cast<size_t>(height_); }

    int width_ = 8;
    int height_ = 1;

  private:
    std::unique_ptr<ShaderProgram> writer_; ///< of the G-buffer
    std::unique_ptr<ShaderProgram> program_;
    RenderTarget gBuffer_;
    RenderTarget output_;
};

/// Fails when a channel differs by more than `tolerance` times its size, or times one.
void expectTexel(const Texel& actual, const Texel& expected, float tolerance);

} // namespace ogl::test
