// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/driver_quirks.h"

#include "platform/win32.h"

#include <string_view>

namespace ogl {

bool drawsInSoftware() {
    const auto* name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (name == nullptr)
        return false;
    const std::string_view renderer = name;
    return renderer.find("llvmpipe") != std::string_view::npos ||
           renderer.find("softpipe") != std::string_view::npos;
}

bool filtersAnisotropicallyInSoftware() {
    return drawsInSoftware();
}

bool readsOneSampleOfWindows() {
    return drawsInSoftware();
}

} // namespace ogl
