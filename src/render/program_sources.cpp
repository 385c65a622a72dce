// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/program_sources.h"

#include "platform/resource_text.h"
#include "render/error_log.h"

namespace ogl {

void initProgramSources(ProgramSourceTable& table) {
    table[kObjShader] = {"objShader", 103, 104};
    table[kObjShaderShadow] = {"objShader", 101, 102};
    table[kObjGBuffer] = {"objGBuffer", 105, 106};
    table[kImgAO] = {"imgAO", 109, 110};
    table[kImgSunlight] = {"imgSunlight", 113, 114};
    table[kImgSpotlight] = {"imgSpotlight", 115, 116};
    table[kImgPointlight] = {"imgPointlight", 119, 120};
    table[kImgPortallight] = {"imgPortallight", 123, 124};
    table[kImgFinal] = {"imgFinal", 117, 118};
    table[kImgNpr] = {"imgNpr", 125, 126};
    table[kImgFxaa] = {"imgFxaa", 127, 128};
    table[kImgEdge] = {"imgEdge", 129, 130};
    table[kObjTransparent] = {"objTransparent", 121, 122};
    table[kImgEABlur] = {"imgEABlur", 111, 112};
    table[kDebugProgram] = {"debug", 107, 108};
}

std::unique_ptr<ShaderProgram> buildProgram(const ProgramSourceTable& table, ProgramIndex index,
                                            ErrorLog& errorLog) {
    return buildProgram(table[static_cast<size_t>(index)], index, errorLog);
}

std::unique_ptr<ShaderProgram> buildProgram(const ProgramSource& source, int variant,
                                            ErrorLog& errorLog) {
    std::array<char, kShaderLogSize> log{};
    auto program = std::make_unique<ShaderProgram>();
    const std::string fragmentText = loadResourceText(source.fragmentResource);
    const std::string vertexText = loadResourceText(source.vertexResource);
    if (program->build(source.name, variant, vertexText, fragmentText, log) != 0)
        errorLog.write("Shader", program->name(), log.data());
    return program;
}

} // namespace ogl
