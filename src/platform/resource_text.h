// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <string>

namespace ogl {

/// The text of resource `number` (type "RT_RCDATA") of the module "ogl.dll", or of the program when
/// it links the library statically and no such module is loaded; up to the first zero byte. Empty
/// when there is no such resource.
std::string loadResourceText(int number);

/// The same, of a given module.
std::string loadResourceText(HMODULE module, int number);

} // namespace ogl
