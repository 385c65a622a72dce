// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

inline constexpr int kFontFirstCharacter = 32;
inline constexpr int kFontListCount = 96; ///< characters 32 to 127

/// Fills kFontListCount display lists of the current context, `listBase` and those after it, with
/// bitmap glyphs of a bold 16 pixel face for characters 32 to 127. False when that failed.
bool buildBitmapFont(HDC dc, unsigned listBase);

} // namespace ogl
