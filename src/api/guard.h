// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/frame_timer.h"

#include <utility>

namespace ogl {

/// Runs the body of an exported function. Nothing that it throws reaches the host, which gets
/// `fallback` instead, except the one error that hosts are told of.
template <class Result, class Body> Result guarded(Result fallback, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const FrequencyError&) {
        throw;
    } catch (...) {
        return fallback;
    }
}

} // namespace ogl
