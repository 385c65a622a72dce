// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <X11/Xlib.h>

namespace ogl::x11 {

/// The virtual-key code of a key symbol without modifiers, 0 when it has none.
unsigned virtualKey(KeySym symbol);

} // namespace ogl::x11
