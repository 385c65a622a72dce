// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the program asks of the system beyond the library's own subset. One source file per system.
#pragma once

#include "oglview/parse_values.h"

namespace oglview {

/// Whether standard error is a terminal that a person looks at.
bool errorOutputIsTerminal();

/// The largest picture that the library's own window can hold.
Size largestPicture();

} // namespace oglview
