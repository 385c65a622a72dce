// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/gl_debug.h"

#include "platform/win32.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace ogl {

namespace {

const char* currentPass = "";
std::atomic<int> messageCount = 0;

void APIENTRY printMessage(GLenum, GLenum type, GLuint id, GLenum severity, GLsizei,
                           const GLchar* message, const void*) {
    if (severity == GL_DEBUG_SEVERITY_NOTIFICATION)
        return;
    // That a driver compiles a shader at its first use is worth knowing, but no fault.
    if (type != GL_DEBUG_TYPE_PERFORMANCE)
        ++messageCount;
    std::fprintf(stderr, "ogl: %s: OpenGL message 0x%x (type 0x%x): %s\n",
                 *currentPass != '\0' ? currentPass : "outside a pass", id, type, message);
}

} // namespace

bool debugRequested() {
    static const bool requested = [] {
        const char* value = std::getenv("OGL_DEBUG");
        return value != nullptr && std::strcmp(value, "1") == 0;
    }();
    return requested;
}

void installDebugOutput() {
    if (!debugRequested() || !GLEW_KHR_debug)
        return;
    glEnable(GL_DEBUG_OUTPUT);
    glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS);
    glDebugMessageCallback(printMessage, nullptr);
}

int debugMessageCount() {
    return messageCount;
}

DebugGroup::DebugGroup(const char* passName) : outer_(currentPass) {
    currentPass = passName;
    if (debugRequested() && GLEW_KHR_debug) {
        glPushDebugGroup(GL_DEBUG_SOURCE_APPLICATION, 0, -1, passName);
        pushed_ = true;
    }
}

DebugGroup::~DebugGroup() {
    if (pushed_)
        glPopDebugGroup();
    currentPass = outer_;
}

} // namespace ogl
