// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/fault_guard.h"

namespace ogl {

bool runGuarded(void (*step)(void* data), void* data) {
    step(data);
    return true;
}

} // namespace ogl
