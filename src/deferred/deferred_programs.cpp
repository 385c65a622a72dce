// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/deferred_programs.h"

namespace ogl {

namespace {

/// In the order in which they are made, after the object program.
constexpr ProgramIndex kImagePrograms[] = {
    kDebugProgram, kObjGBuffer,    kImgAO,          kImgEABlur, kImgSunlight,
    kImgSpotlight, kImgPointlight, kImgPortallight, kImgFinal,  kObjTransparent,
    kImgNpr,       kImgFxaa,       kImgEdge,
};

/// The object program has one slot.
size_t slotOf(ProgramIndex index) {
    return static_cast<size_t>(index == kObjShaderShadow ? kObjShader : index);
}

} // namespace

void DeferredPrograms::build(ProgramIndex objectVariant, ErrorLog& errorLog) {
    std::unique_ptr<ShaderProgram>& object = slots_[slotOf(objectVariant)];
    if (object != nullptr && object->variant() == objectVariant)
        return;
    object.reset();
    object = buildProgram(sources_, objectVariant, errorLog);
    for (const ProgramIndex index : kImagePrograms)
        if (!has(index))
            slots_[slotOf(index)] = buildProgram(sources_, index, errorLog);
}

const ShaderProgram& DeferredPrograms::get(ProgramIndex index) const {
    return *slot(index);
}

const std::unique_ptr<ShaderProgram>& DeferredPrograms::slot(ProgramIndex index) const {
    return slots_[slotOf(index)];
}

} // namespace ogl
