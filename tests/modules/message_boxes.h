// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::test {

/// From now on prints the text of every message box that this process shows, and closes it.
void answerMessageBoxes();

} // namespace ogl::test
