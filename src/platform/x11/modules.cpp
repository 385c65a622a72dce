// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Modules over dlopen. A module handle is the loader's handle.
#include "platform/win32.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr char kLibraryName[] = "ogl.dll";

// The loader's handle of a loaded module, its count as before. Null when it is not loaded.
HMODULE loaded(const char* path) {
    void* const handle = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return static_cast<HMODULE>(handle);
}

HMODULE program() {
    static void* const handle = dlopen(nullptr, RTLD_NOW);
    return static_cast<HMODULE>(handle);
}

// The file of the library that holds this code; empty for the program itself.
std::string ownFile() {
    Dl_info info;
    void* map = nullptr;
    if (!dladdr1(reinterpret_cast<void*>(&ownFile), &info, &map, RTLD_DL_LINKMAP) || !map)
        return {};
    return static_cast<const link_map*>(map)->l_name;
}

std::string programFile() {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

std::string folderOf(const std::string& file) {
    const size_t slash = file.rfind('/');
    return slash == std::string::npos ? std::string() : file.substr(0, slash + 1);
}

std::string withoutDll(const std::string& name) {
    const size_t dot = name.size() >= 4 ? name.size() - 4 : std::string::npos;
    return dot != std::string::npos && strcasecmp(name.c_str() + dot, ".dll") == 0
               ? name.substr(0, dot)
               : name;
}

// The files that a module name may mean, in the order in which they are tried.
std::vector<std::string> candidates(const std::string& name) {
    if (name.find('/') != std::string::npos)
        return {name};
    std::string library = ownFile();
    const std::string stem = withoutDll(name);
    std::vector<std::string> files;
    for (const std::string& folder : {folderOf(library), folderOf(programFile()), std::string()})
        for (const std::string& file : {name, "lib" + stem + ".so", stem + ".so"})
            files.push_back(folder + file);
    return files;
}

HMODULE ownModule() {
    const std::string file = ownFile();
    return file.empty() ? program() : loaded(file.c_str());
}

} // namespace

HMODULE GetModuleHandleA(LPCSTR name) {
    if (!name)
        return program();
    if (strcasecmp(name, kLibraryName) == 0)
        return ownModule();
    for (const std::string& file : candidates(name))
        if (HMODULE module = loaded(file.c_str()))
            return module;
    return nullptr;
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size) {
    std::string file;
    if (!module || module == program()) {
        file = programFile();
    } else {
        link_map* map = nullptr;
        if (dlinfo(module, RTLD_DI_LINKMAP, &map) == 0 && map)
            file = map->l_name;
    }
    if (file.empty() || !path || size == 0)
        return 0;
    // A path that is too long is cut, and the result is the buffer's size then.
    const size_t length = file.size() < size ? file.size() : size - 1;
    std::memcpy(path, file.data(), length);
    path[length] = '\0';
    return file.size() < size ? static_cast<DWORD>(length) : size;
}

HMODULE LoadLibraryA(LPCSTR name) {
    if (!name || !*name)
        return nullptr;
    for (const std::string& file : candidates(name))
        if (void* const module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL))
            return static_cast<HMODULE>(module);
    return nullptr;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
    if (!module || !name || IS_INTRESOURCE(name))
        return nullptr;
    return reinterpret_cast<FARPROC>(dlsym(module, name));
}

BOOL FreeLibrary(HMODULE module) {
    return module && dlclose(module) == 0 ? TRUE : FALSE;
}

// What Windows does for every module: tell it when it comes and goes. Weak here, since not every
// program has one.
// NOLINTNEXTLINE(readability-redundant-declaration)
extern "C" __attribute__((weak)) BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);

namespace {

__attribute__((constructor)) void attach() {
    if (&DllMain)
        DllMain(ownModule(), DLL_PROCESS_ATTACH, nullptr);
}

__attribute__((destructor)) void detach() {
    if (&DllMain)
        DllMain(ownModule(), DLL_PROCESS_DETACH, nullptr);
}

} // namespace
