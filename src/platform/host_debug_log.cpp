// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/host_debug_log.h"

#include <initializer_list>

namespace ogl {

void HostDebugLog::initialise() {
    if (initialised_)
        return;
    initialised_ = true;
    for (const char* name : {"hx.dll", "hx_lumen.dll", "hxs.dll", "orbit.dll"}) {
        module_ = LoadLibraryA(name);
        if (module_ != nullptr)
            break;
    }
    if (module_ != nullptr) {
        // By way of void*: the compilers warn of a cast between unlike function types.
        void* address = reinterpret_cast<void*>(GetProcAddress(module_, "D3DLL_DEBUG_WriteString"));
        writeString_ = reinterpret_cast<WriteString>(address);
    }
    if (writeString_ == nullptr)
        MessageBoxA(GetActiveWindow(),
                    "GetProcAddress( \"D3DLL_DEBUG_WriteString( ) ) in hx___.dll\" error", nullptr,
                    MB_OK);
}

void HostDebugLog::write(int first, const char* operation, const char* phase, int last) {
    initialise();
    if (writeString_ != nullptr)
        writeString_(first, operation, phase, last);
}

void HostDebugLog::release() {
    writeString_ = nullptr;
    if (module_ != nullptr)
        FreeLibrary(module_);
    module_ = nullptr;
}

HostDebugLog& hostDebugLog() {
    static HostDebugLog log;
    return log;
}

} // namespace ogl
