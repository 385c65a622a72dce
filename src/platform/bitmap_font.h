// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

inline constexpr int kFontFirstCharacter = 32;
inline constexpr int kFontListCount = 96; ///< characters 32 to 127

/// Makes display lists with bitmap glyphs of a bold 16 pixel face for characters 32 to 127 in the
/// current context. `listBase` receives the number of the first list, which the caller deletes
/// (kFontListCount lists), also after a failure. Returns false when the lists could not be filled.
bool buildBitmapFont(HDC dc, unsigned& listBase);

} // namespace ogl
