// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Draws the view's tooltip, if its text is not empty, in window pixels: a box as wide as the text
/// is long and the text. `fontLists`: as for drawText.
void drawTooltip(const VIEW& view, unsigned fontLists);

} // namespace ogl
