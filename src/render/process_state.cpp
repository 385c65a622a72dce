// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/process_state.h"

namespace ogl {

ProcessState& processState() {
    static ProcessState state;
    return state;
}

} // namespace ogl
