// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// Passes messages on to the trace function that a host may export from one of its modules. The
/// texts are single-byte Latin-1.
class HostDebugLog {
  public:
    /// int 0, operation, phase, int 0; the callee cleans the stack.
    using WriteString = int(WINAPI*)(int, const char*, const char*, int);

    HostDebugLog() = default;
    ~HostDebugLog() { release(); }
    HostDebugLog(const HostDebugLog&) = delete;
    HostDebugLog& operator=(const HostDebugLog&) = delete;

    /// Looks for the host's function; a failed search shows a message box. Only the first call
    /// does anything.
    void initialise();

    /// Calls the host's function with the four arguments, or does nothing when there is none.
    void write(int first, const char* operation, const char* phase, int last);

    /// Frees the host's module. Later writes do nothing.
    void release();

  private:
    HMODULE module_ = nullptr;
    bool initialised_ = false;
    WriteString writeString_ = nullptr;
};

/// The process's one host debug log.
HostDebugLog& hostDebugLog();

} // namespace ogl
