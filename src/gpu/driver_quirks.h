// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Where a driver is to be treated in a way of its own, and why.
#pragma once

namespace ogl {

/// Mesa's software drivers (llvmpipe, softpipe). What they draw into lies in the process's memory.
bool drawsInSoftware();

/// The same. Seen with llvmpipe 22.3: the loop of its anisotropic filter never ends in some
/// textures at a grazing angle, otherwise costs fifty times the trilinear one (a room of 2400 x
/// 1600 pixels: 65 seconds instead of 1.3), and leaves round patches in enlarged textures.
bool filtersAnisotropicallyInSoftware();

/// The same drivers. Seen with llvmpipe 22.3: glReadPixels of a multisampled window gives one
/// sample of each pixel instead of the mean of all.
bool readsOneSampleOfWindows();

} // namespace ogl
