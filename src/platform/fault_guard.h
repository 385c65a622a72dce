// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <type_traits>

namespace ogl {

/// Calls `step(data)`. False when it raised a structured exception, an access violation for one,
/// that nothing in it handled; objects of the step's own are not destroyed then. Systems without
/// structured exceptions just call it. The step throws nothing.
bool runGuarded(void (*step)(void* data), void* data);

/// The same for anything that can be called; its variables are best the caller's.
template <class Step> bool runGuarded(Step&& step) {
    using Callable = std::remove_reference_t<Step>;
    return runGuarded([](void* data) { (*static_cast<Callable*>(data))(); }, &step);
}

} // namespace ogl
