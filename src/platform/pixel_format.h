// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// The largest of 1, 4, 8 and 16 that is not above `requested`; 1 below 4.
int sampleCountFor(int requested);

/// The descriptor of a drawing window: double-buffered RGBA with 8 alpha, 32 depth and 8 stencil
/// bits.
PIXELFORMATDESCRIPTOR windowPixelFormat();

/// The number of a multisampled format of `dc` with `samples` per pixel; 0 when there is none. A
/// context whose extensions are loaded must be current.
int multisampleFormat(HDC dc, int samples);

/// Looks for a multisampled format of `dc` with `samples` per pixel, then half as many, down to 1.
/// When one is found, `format` becomes its number and `aaName` for example "4x MSAA"; else `format`
/// stays and `aaName` is emptied. A context whose extensions are loaded must be current.
void chooseMultisampleFormat(HDC dc, int samples, int& format, char (&aaName)[32]);

} // namespace ogl
