// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/export_call.h"
#include "platform/own_window.h"
#include "platform/win32.h"
#include "render/process_state.h"

/// The library's entry point: keeps its module instance, and closes its own window and lets
/// go of the exporter when the process lets go of the library.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        ogl::processState() = {};
        ogl::processState().moduleInstance = instance;
    } else if (reason == DLL_PROCESS_DETACH) {
        ogl::tearDownOwnWindow();
        ogl::releaseExporter();
    }
    return TRUE;
}
