// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// Makes a context current for as long as it lives, then the one that was current before. What was
/// drawn into shared objects can be used there.
class ContextScope {
  public:
    ContextScope(HDC dc, HGLRC context);
    ~ContextScope();
    ContextScope(const ContextScope&) = delete;
    ContextScope& operator=(const ContextScope&) = delete;

  private:
    HDC outerDC_;
    HGLRC outerContext_;
    bool switched_;
};

} // namespace ogl
