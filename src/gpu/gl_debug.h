// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// True when the environment has OGL_DEBUG=1.
bool debugRequested();

/// Sends the current context's debug messages to standard error, each with the name of the pass
/// that it came from. Does nothing unless debugRequested(), or when the driver has no debug output.
void installDebugOutput();

/// Messages seen since the program started; notifications and hints on performance left out.
int debugMessageCount();

/// Names a pass for debug messages and frame debuggers, for as long as it lives.
class DebugGroup {
  public:
    /// `passName` must outlive the group.
    explicit DebugGroup(const char* passName);
    ~DebugGroup();
    DebugGroup(const DebugGroup&) = delete;
    DebugGroup& operator=(const DebugGroup&) = delete;

  private:
    const char* outer_;
    bool pushed_ = false;
};

} // namespace ogl
