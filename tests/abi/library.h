// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/ogl.h"
#include "platform/win32.h"

namespace ogl::test {

/// The built library, loaded at run time and called by its exported names, as a host does.
struct Library {
    HMODULE module = nullptr;
    decltype(&d3_Create) create = nullptr;
    decltype(&d3_Release) release = nullptr;
    decltype(&d3_DrawInWindow) drawInWindow = nullptr;
    decltype(&d3_DrawInDibSection) drawInDibSection = nullptr;
    decltype(&d3_DrawInFile) drawInFile = nullptr;
    decltype(&d3_GetPickedObjects) pickedObjects = nullptr;
    decltype(&d3_ExportJS) exportJS = nullptr;
    decltype(&d3_CreateTextureFromFile) createTextureFromFile = nullptr;
    decltype(&d3_ReleasePointer) releasePointer = nullptr;
    decltype(&di_GetState) inputState = nullptr;
};

/// The library, loaded once per test program. Throws std::runtime_error when it cannot be.
const Library& library();

} // namespace ogl::test
