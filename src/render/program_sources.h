// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/shader_program.h"

#include <array>
#include <memory>

namespace ogl {

class ErrorLog;

/// Places in the program table, kept in a program as its variant.
enum ProgramIndex : int {
    kObjShader = 0,       ///< forward shading without shadows
    kObjShaderShadow = 1, ///< forward shading with a shadow map
    kObjGBuffer = 2,
    kImgAO = 3,
    kImgSunlight = 4,
    kImgSpotlight = 5,
    kImgPointlight = 6,
    kImgPortallight = 7,
    kImgFinal = 8,
    kImgNpr = 9,
    kImgFxaa = 10,
    kImgEdge = 11,
    kObjTransparent = 12,
    kImgEABlur = 13,
    kDebugProgram = 14,
};
inline constexpr int kProgramCount = 15;

/// Where the texts of a program are, and what it is called in the log.
struct ProgramSource {
    const char* name;
    int vertexResource;
    int fragmentResource;
};

using ProgramSourceTable = std::array<ProgramSource, kProgramCount>;

/// Fills the table with the resources of all programs.
void initProgramSources(ProgramSourceTable& table);

/// Longest compile log that is kept, with its ending zero.
inline constexpr int kShaderLogSize = 4096;

/// Makes a program of the table. What a compiler has to say goes into the log's section "Shader",
/// under the program's name; of two logs the fragment shader's.
std::unique_ptr<ShaderProgram> buildProgram(const ProgramSourceTable& table, ProgramIndex index,
                                            ErrorLog& errorLog);

/// The same for a program that is not of the table.
std::unique_ptr<ShaderProgram> buildProgram(const ProgramSource& source, int variant,
                                            ErrorLog& errorLog);

} // namespace ogl
