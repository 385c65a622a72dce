// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "render/light.h"

#include <memory>

namespace ogl {

class ErrorLog;

/// Makes, aims, colours or drops the sun as the scene says, whose contents lie in `bounds`. There
/// is no sun below the horizon or without intensity; with an unusable date or place it stays where
/// it was, and the log says so once. Returns true when its shadow map is out of date.
bool updateSun(std::unique_ptr<SunLight>& sun, const SCENE& scene, const Box& bounds,
               ErrorLog& errorLog);

} // namespace ogl
