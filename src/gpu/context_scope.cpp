// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/context_scope.h"

namespace ogl {

ContextScope::ContextScope(HDC dc, HGLRC context)
    : outerDC_(wglGetCurrentDC()), outerContext_(wglGetCurrentContext()),
      switched_(context != outerContext_ && wglMakeCurrent(dc, context) != FALSE) {}

ContextScope::~ContextScope() {
    if (!switched_)
        return;
    glFlush();
    wglMakeCurrent(outerDC_, outerContext_);
}

} // namespace ogl
