// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the program asks of the system beyond the library's own subset. One source file per system.
#pragma once

namespace oglview {

/// Whether standard error is a terminal that a person looks at.
bool errorOutputIsTerminal();

} // namespace oglview
