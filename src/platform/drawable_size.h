// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// Waits, at most a second, until the back buffer of the window behind `dc`, on which a context is
/// current, has at least the size in pixels. Some drivers give a resized window its new buffers
/// only at a later buffer swap; what is drawn before that is lost outside the old size. The back
/// buffer's contents are lost, other OpenGL state is kept. Returns false when the time ran out.
bool waitForDrawableSize(HDC dc, int width, int height);

} // namespace ogl
