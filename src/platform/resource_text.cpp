// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/resource_text.h"

#include <cstring>

namespace ogl {
namespace {

constexpr char kModule[] = "ogl.dll";
// A named type: the predefined RT_RCDATA is a number.
constexpr char kType[] = "RT_RCDATA";

} // namespace

std::string loadResourceText(int number) {
    const HMODULE library = GetModuleHandleA(kModule);
    return loadResourceText(library ? library : GetModuleHandleA(nullptr), number);
}

std::string loadResourceText(HMODULE module, int number) {
    if (!module || number < 1 || number > 0xffff)
        return {};
    const HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(number), kType);
    if (!resource)
        return {};
    const DWORD size = SizeofResource(module, resource);
    const HGLOBAL data = size ? LoadResource(module, resource) : nullptr;
    const auto* bytes = data ? static_cast<const char*>(LockResource(data)) : nullptr;
    if (!bytes)
        return {};
    const void* end = std::memchr(bytes, 0, size);
    return std::string(bytes, end ? static_cast<const char*>(end) : bytes + size);
}

} // namespace ogl
