// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/gl_state.h"

#include "gpu/vertex_array.h"
#include "platform/win32.h"

#include <algorithm>

namespace ogl {

namespace {

void resetTests() {
    glDisable(GL_LINE_STIPPLE);
    glClearDepth(1.0);
    glEnable(GL_CULL_FACE);
    glFrontFace(GL_CW);
    glCullFace(GL_BACK);
    glDisable(GL_COLOR_MATERIAL);
    glDisable(GL_LIGHTING);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glDisable(GL_NORMALIZE);
    glDisable(GL_RESCALE_NORMAL);
}

void resetShading() {
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0);
    glLightModeli(GL_LIGHT_MODEL_COLOR_CONTROL, GL_SEPARATE_SPECULAR_COLOR);
    glEnable(GL_MULTISAMPLE);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GEQUAL, 1.0f / 255.0f);
    glDisable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_DITHER);
    unbindAllArrays();
    glShadeModel(GL_FLAT);
}

float resetPoints() {
    float sizeMax = 1.0f;
    glGetFloatv(GL_POINT_SIZE_MAX, &sizeMax);
    sizeMax = std::min(sizeMax, kPointSizeLimit);
    const float attenuation[3] = {0.0f, 0.7f, 0.3f};
    glPointParameterfv(GL_POINT_DISTANCE_ATTENUATION, attenuation);
    glPointParameterf(GL_POINT_SIZE_MIN, 1.0f);
    glPointParameterf(GL_POINT_SIZE_MAX, sizeMax);
    return sizeMax;
}

} // namespace

float resetGLDefaults() {
    resetTests();
    resetShading();
    const float pointSizeMax = resetPoints();
    if (wglSwapIntervalEXT != nullptr)
        wglSwapIntervalEXT(0);
    return pointSizeMax;
}

void turnColorClampingOff() {
    if (glClampColor == nullptr)
        return;
    glClampColor(GL_CLAMP_VERTEX_COLOR, GL_FALSE);
    glClampColor(GL_CLAMP_FRAGMENT_COLOR, GL_FALSE);
}

void setCapability(unsigned capability, bool on) {
    if (on)
        glEnable(capability);
    else
        glDisable(capability);
}

} // namespace ogl
