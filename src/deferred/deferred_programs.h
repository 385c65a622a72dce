// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/program_sources.h"

#include <array>
#include <memory>

namespace ogl {

/// The programs of the deferred renderer, each made once; the object program can change its
/// variant.
class DeferredPrograms {
  public:
    DeferredPrograms() { initProgramSources(sources_); }

    /// Makes what is missing, the object program in `objectVariant` (kObjShader or
    /// kObjShaderShadow). Does nothing when there is an object program of that variant.
    void build(ProgramIndex objectVariant, ErrorLog& errorLog);

    /// A program that build() made; both variants name the one object program.
    const ShaderProgram& get(ProgramIndex index) const;
    bool has(ProgramIndex index) const { return slot(index) != nullptr; }

  private:
    const std::unique_ptr<ShaderProgram>& slot(ProgramIndex index) const;

    ProgramSourceTable sources_{};
    std::array<std::unique_ptr<ShaderProgram>, kProgramCount> slots_;
};

} // namespace ogl
