// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The fields of a SCENE that a host changes while it is shown.
#pragma once

#include "host/scene_builder.h"
#include "host/view_projection.h"

#include <string_view>

namespace ogl::host {

/// Camera, styles and modes of a scene that nobody has set up yet.
void writeDefaultState(SCENE& scene);

void writeSite(SCENE& scene, double width, double depth, double height);
void writeCamera(GEOMETRY& geometry, const Camera& camera);
void writeViewWindow(SCENE& scene, const std::optional<ViewWindow>& window);
void writeDrawingStyle(SCENE& scene, const DrawingStyle& style);
void writeSketchStyle(SCENE& scene, const SketchStyle& style);
void writePhotoStyle(SCENE& scene, const PhotoStyle& style);
/// Writes the sun's angles, and its direction into the first light record when there is one.
void writeSun(SCENE& scene, const Sun& sun);
void writeSunDate(SCENE& scene, const std::optional<SunDate>& date);
void writeObjectVisible(SCENE& scene, ObjectId object, bool visible);
void writeObjectHighlight(SCENE& scene, ObjectId object, uint32_t bits);
void writeTooltip(VIEW& view, std::string_view text, PIXEL place);
/// Writes where path number `path` is seen into the room that the record has for it.
void writePathPlace(SCENE& scene, int path, const PathPlace& place);
/// Sets the change marks of every object, of shadows and of lights.
void markObjectsChanged(SCENE& scene);
/// The slots of the record in which the library keeps something.
std::vector<SceneBuilder::LibrarySlot> usedLibrarySlots(SCENE& scene);

} // namespace ogl::host
