// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The resources of the module that holds this code.
#include "platform/x11/resources.h"

#include "platform/win32.h"

#include <strings.h>

using ogl::x11::EmbeddedResource;

namespace {

const EmbeddedResource* find(HRSRC handle) {
    const auto* resource = reinterpret_cast<const EmbeddedResource*>(handle);
    for (size_t i = 0; i < ogl::x11::kEmbeddedResourceCount; ++i)
        if (resource == &ogl::x11::kEmbeddedResources[i])
            return resource;
    return nullptr;
}

} // namespace

HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type) {
    if (!module || module != GetModuleHandleA("ogl.dll") || !IS_INTRESOURCE(name) ||
        IS_INTRESOURCE(type))
        return nullptr;
    const auto number = static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(name));
    for (size_t i = 0; i < ogl::x11::kEmbeddedResourceCount; ++i) {
        const EmbeddedResource& resource = ogl::x11::kEmbeddedResources[i];
        if (resource.number == number && strcasecmp(resource.type, type) == 0)
            return reinterpret_cast<HRSRC>(const_cast<EmbeddedResource*>(&resource));
    }
    return nullptr;
}

DWORD SizeofResource(HMODULE, HRSRC handle) {
    const EmbeddedResource* const resource = find(handle);
    return resource ? static_cast<DWORD>(resource->size) : 0;
}

HGLOBAL LoadResource(HMODULE, HRSRC handle) {
    const EmbeddedResource* const resource = find(handle);
    return resource ? const_cast<unsigned char*>(resource->bytes) : nullptr;
}

LPVOID LockResource(HGLOBAL data) {
    return data;
}
