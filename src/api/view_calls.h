// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

class RenderContext;

/// Makes a view for `window`, or for the library's own window when it is null, and reports the
/// start and the success to the host's debug log. Null when the view cannot draw.
RenderContext* createView(HWND window, unsigned flags, const char* iniPath);

/// Destroys the process's renderer and the view, which may be null.
void releaseView(RenderContext* context);

/// Frees what the 4-byte address at `slot` names, sets it to null and marks the scene as changed.
void releaseParked(void* slot, int kind);

} // namespace ogl
