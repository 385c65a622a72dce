// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "abi/library.h"

#include "support/system.h"

#include <filesystem>
#include <stdexcept>
#include <string>

namespace ogl::test {

namespace {

template <class Function> void find(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    if (function == nullptr)
        throw std::runtime_error(std::string("the library lacks ") + name);
}

Library load() {
    const std::filesystem::path folder = std::filesystem::path(programPath()).parent_path();
    setEnvironment("OGL_DEBUG", "1"); // tests look at what it prints
    LoadLibraryA((folder / OGL_SILENT_TRACE).string().c_str());
    Library loaded;
    loaded.module = LoadLibraryA("ogl.dll");
    if (loaded.module == nullptr)
        throw std::runtime_error("ogl.dll cannot be loaded");
    find(loaded.module, "d3_Create", loaded.create);
    find(loaded.module, "d3_Release", loaded.release);
    find(loaded.module, "d3_DrawInWindow", loaded.drawInWindow);
    find(loaded.module, "d3_DrawInDibSection", loaded.drawInDibSection);
    find(loaded.module, "d3_DrawInFile", loaded.drawInFile);
    find(loaded.module, "d3_GetPickedObjects", loaded.pickedObjects);
    find(loaded.module, "d3_ExportJS", loaded.exportJS);
    find(loaded.module, "d3_CreateTextureFromFile", loaded.createTextureFromFile);
    find(loaded.module, "d3_ReleasePointer", loaded.releasePointer);
    find(loaded.module, "di_GetState", loaded.inputState);
    return loaded;
}

} // namespace

const Library& library() {
    static const Library loaded = load();
    return loaded;
}

} // namespace ogl::test
