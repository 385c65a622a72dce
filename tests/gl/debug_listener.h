// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::test {

/// Lets the debug messages that the running test has caused so far pass.
void acceptDebugMessages();

} // namespace ogl::test
