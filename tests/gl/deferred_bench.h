// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/deferred_programs.h"
#include "deferred/image_pass.h"
#include "gl/shader_bench.h"

#include <functional>

namespace ogl::test {

/// Runs the deferred renderer's passes on targets whose contents the test makes.
class DeferredBench : public ShaderBench {
  protected:
    static constexpr Vec3 kEye{0.4f, -3.0f, 2.0f};

    void SetUp() override;
    void TearDown() override;

    /// Makes the targets for the picture's size, with samples in the G-buffer.
    void makeTargets(int samples);
    const FrameView& frame();
    const ShaderProgram& program(ProgramIndex index) const { return programs_.get(index); }
    /// Fails when a pass left a program, a texture unit or a framebuffer behind.
    void expectNeutralState() const;
    /// What one sample of the G-buffer holds.
    std::vector<Texel> surfacesOf(int attachment, int sample);
    /// What a pass draws into the framebuffer that is bound.
    std::vector<Texel> drawnBy(const std::function<void()>& pass);

    FrameTargetSet targets_;
    DeferredPrograms programs_;

  private:
    std::unique_ptr<FrameView> frame_;
    std::unique_ptr<ShaderProgram> reader_; ///< of the G-buffer
};

} // namespace ogl::test
