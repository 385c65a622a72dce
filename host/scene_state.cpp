// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/scene_state.h"

#include "host/scene_writer.h"

#include <algorithm>
#include <cstring>
#include <numbers>

namespace ogl::host {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr uint32_t kHiddenObject = 0x8; // one of the bits of kObjectNotDrawn
constexpr double kViewWindowUnit = 32000.0;

VEC3F vec3f(Vec3 v) {
    return {static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)};
}

RGB8 rgb(Color c) {
    return {c.red, c.green, c.blue};
}

uint32_t packed(Color c) {
    return static_cast<uint32_t>(c.red) | static_cast<uint32_t>(c.green) << 8 |
           static_cast<uint32_t>(c.blue) << 16;
}

uint32_t withBit(uint32_t flags, uint32_t bit, bool on) {
    return on ? flags | bit : flags & ~bit;
}

int16_t wholeDegrees(double degrees) {
    return static_cast<int16_t>(std::lround(std::remainder(degrees, 360.0)));
}

OBJECT* objectRecords(SCENE& scene) {
    LIST* list = scene.geometry.objects.get();
    return list != nullptr ? static_cast<OBJECT*>(list->data.get()) : nullptr;
}

CACHEENTRY* cacheEntries(SCENE& scene) {
    return static_cast<CACHEENTRY*>(scene.geometry.view.get()->objectCache.data.get());
}

void collectSlot(std::vector<SceneBuilder::LibrarySlot>& slots, void* place, int kind) {
    uint32_t address = 0;
    std::memcpy(&address, place, sizeof address);
    if (address != 0)
        slots.push_back({static_cast<void**>(place), kind});
}

} // namespace

void writeDefaultState(SCENE& scene) {
    scene.geometry.view.get()->flags = kViewNoSelection | kViewNoOverlays | kViewNoHud;
    scene.renderMode = kRenderModeDrawing;
    scene.currentPath = -1;
    writeCamera(scene.geometry, {});
    writeDrawingStyle(scene, {});
    writeSketchStyle(scene, {});
    writePhotoStyle(scene, {});
    writeSun(scene, {});
    writeSunDate(scene, std::nullopt);
}

void writeSite(SCENE& scene, double width, double depth, double height) {
    const double unitScale = scene.geometry.unitScale;
    scene.siteWidth = siteUnits(width, unitScale);
    scene.siteDepth = siteUnits(depth, unitScale);
    scene.siteHeight = siteUnits(height, unitScale);
}

void writeCamera(GEOMETRY& geometry, const Camera& camera) {
    geometry.eye = vec3f(camera.eye);
    geometry.target = vec3f(camera.target);
    geometry.up = vec3f(camera.up);
    geometry.fieldOfView = camera.fieldOfViewDegrees * kRadians;
}

void writeViewWindow(SCENE& scene, const std::optional<ViewWindow>& window) {
    const auto units = [](double v) {
        return static_cast<int32_t>(std::lround(std::clamp(v, -1e4, 1e4) * kViewWindowUnit));
    };
    const ViewWindow w = window.value_or(ViewWindow{0.0, 0.0, 0.0, 0.0});
    scene.viewWindowCenterX = units(w.centerX);
    scene.viewWindowCenterY = units(w.centerY);
    scene.viewWindowWidth = units(w.width);
    scene.viewWindowHeight = units(w.height);
}

void writeDrawingStyle(SCENE& scene, const DrawingStyle& style) {
    scene.geometry.edgeOpacity = style.edgeOpacityPercent;
    scene.lineWeight = style.lineWeight;
    uint32_t options = 0;
    options = withBit(options, kOptionHiddenEdges, style.hiddenEdges);
    options = withBit(options, kOptionRoundEdgeEnds, style.edgeMarks);
    options = withBit(options, kOptionSingleColorEdges, style.singleColorEdges);
    scene.photoOptions = options;
    scene.drawingOptions =
        withBit(options, kOptionBackgroundColor, style.drawingBackground.has_value());
    scene.drawingBackgroundColor = packed(style.drawingBackground.value_or(Color{}));
    scene.geometry.backgroundColor = packed(style.background);
}

void writeSketchStyle(SCENE& scene, const SketchStyle& style) {
    scene.lightFlags = withBit(scene.lightFlags, kLightSketchEdges, style.enabled);
    scene.edgeStrength = static_cast<int16_t>(style.strengthPercent);
    scene.noiseStrength = static_cast<int16_t>(style.noise);
    scene.edgeColor = rgb(style.color);
}

void writePhotoStyle(SCENE& scene, const PhotoStyle& style) {
    scene.exposure = style.exposure;
    scene.toneGamma = style.gamma;
    scene.saturation = style.saturation;
    scene.aoStrength = static_cast<int16_t>(style.ambientOcclusionPercent);
    scene.ambientLevel = static_cast<int16_t>(style.ambientPercent);
    scene.geometry.lightAmbient = style.lightAmbient;
    scene.portalIntensity = static_cast<int16_t>(style.portalIntensity);
    scene.portalColor = rgb(style.portalColor);
    uint32_t flags = scene.lightFlags;
    flags = withBit(flags, kLightInterior, style.interior);
    flags = withBit(flags, kLightSunAndPortals, style.sunAndPortals);
    flags = withBit(flags, kLightMonochrome, style.monochrome);
    flags = withBit(flags, kLightBackgroundColor, style.useBackgroundColor);
    if (((flags ^ scene.lightFlags) & kLightInterior) != 0)
        scene.geometry.flags = scene.geometry.flags | kGeometryShadowsChanged;
    scene.lightFlags = flags;
}

void writeSun(SCENE& scene, const Sun& sun) {
    scene.lightFlags = withBit(scene.lightFlags, kLightSunPresent, sun.present);
    scene.sunColor = rgb(sun.color);
    scene.sunIntensity = static_cast<int16_t>(sun.intensityPercent);
    scene.sunAzimuthAngle = wholeDegrees(sun.azimuthDegrees);
    // The record's elevation is that of the travelling light: downwards is negative.
    scene.sunElevationAngle = wholeDegrees(-sun.elevationDegrees);
    auto* record = static_cast<LIGHT*>(scene.geometry.lights.data.get());
    if (record == nullptr)
        return;
    const double azimuth = sun.azimuthDegrees * kRadians;
    const double elevation = sun.elevationDegrees * kRadians;
    const Vec3 direction{std::cos(elevation) * std::cos(azimuth),
                         std::cos(elevation) * std::sin(azimuth), -std::sin(elevation)};
    constexpr double kFar = 100.0;
    record->position = vec3f(direction * -kFar);
    record->target = vec3f(direction);
    const float scale = static_cast<float>(sun.intensityPercent) * 0.01f / 255.0f;
    record->color = {static_cast<float>(sun.color.red) * scale,
                     static_cast<float>(sun.color.green) * scale,
                     static_cast<float>(sun.color.blue) * scale};
    record->kind = 0;
}

void writeSunDate(SCENE& scene, const std::optional<SunDate>& date) {
    scene.lightFlags = withBit(scene.lightFlags, kLightSunFromDate, date.has_value());
    const SunDate d = date.value_or(SunDate{});
    scene.sunDate = d.date;
    scene.sunMinutes = static_cast<int16_t>(d.minutes);
    scene.siteLatitude = static_cast<float>(d.latitude);
    scene.siteLongitude = static_cast<float>(d.longitude);
    scene.northAngle = d.northAngle * kRadians;
}

void writeObjectVisible(SCENE& scene, ObjectId object, bool visible) {
    OBJECT& record = objectRecords(scene)[object];
    record.flags = withBit(record.flags & ~kObjectNotDrawn, kHiddenObject, !visible);
    CACHEENTRY& entry = cacheEntries(scene)[object];
    entry.changeFlags = entry.changeFlags | kObjectChanged;
    scene.geometry.flags = scene.geometry.flags | kGeometryShadowsChanged;
}

void writeObjectHighlight(SCENE& scene, ObjectId object, uint32_t bits) {
    objectRecords(scene)[object].highlight = bits;
}

void writeTooltip(VIEW& view, std::string_view text, PIXEL place) {
    const size_t length = std::min(text.size(), sizeof view.tooltipText - 1);
    std::memset(view.tooltipText, 0, sizeof view.tooltipText);
    if (length != 0)
        std::memcpy(view.tooltipText, text.data(), length);
    view.tooltip = place;
}

void writePathPlace(SCENE& scene, int path, const PathPlace& place) {
    // Both lists have room for as many pixels as the path has points.
    const INDEX room = static_cast<INDEX*>(scene.pathPoints.index.data.get())[path];
    const auto write = [&](const VLIST& list, const std::vector<PIXEL>& pixels) {
        const auto count = std::min(static_cast<int32_t>(pixels.size()), int32_t{room.count});
        std::copy_n(pixels.begin(), count, static_cast<PIXEL*>(list.items.data.get()) + room.first);
        static_cast<INDEX*>(list.index.data.get())[path] = {room.first, count};
    };
    const VIEW& view = *scene.geometry.view.get();
    write(view.pathPixels, place.line);
    write(view.markerPixels, place.markers);
}

void markObjectsChanged(SCENE& scene) {
    const int32_t count = scene.geometry.view.get()->objectCache.count;
    CACHEENTRY* entries = cacheEntries(scene);
    for (int32_t i = 0; i < count; ++i)
        entries[i].changeFlags = entries[i].changeFlags | kObjectChanged;
    scene.geometry.flags = scene.geometry.flags | kGeometryShadowsChanged | kGeometryLightsChanged;
}

std::vector<SceneBuilder::LibrarySlot> usedLibrarySlots(SCENE& scene) {
    std::vector<SceneBuilder::LibrarySlot> slots;
    VIEW& view = *scene.geometry.view.get();
    const auto collectEntry = [&slots](CACHEENTRY* entry) {
        auto* bytes = reinterpret_cast<uint8_t*>(entry);
        collectSlot(slots, bytes + offsetof(CACHEENTRY, meshBatches), kReleaseMeshBatches);
        collectSlot(slots, bytes + offsetof(CACHEENTRY, otherBatches), kReleaseBatchSet);
        collectSlot(slots, bytes + offsetof(CACHEENTRY, edgeRecord), kReleaseBatchSet);
    };
    for (int32_t i = 0; i < view.objectCache.count; ++i)
        collectEntry(cacheEntries(scene) + i);
    collectEntry(
        reinterpret_cast<CACHEENTRY*>(reinterpret_cast<uint8_t*>(&view) + offsetof(VIEW, preview)));
    constexpr size_t kImagesPerSlot = sizeof(TEXTURESLOT) / sizeof(Ptr32<TextureImage>);
    auto* textures = static_cast<uint8_t*>(scene.geometry.textures.data.get());
    for (int32_t i = 0; i < scene.geometry.textures.count; ++i) {
        uint8_t* slot =
            textures + static_cast<size_t>(i) * sizeof(TEXTURE) + offsetof(TEXTURE, slot);
        for (size_t image = 0; image < kImagesPerSlot; ++image)
            collectSlot(slots, slot + image * sizeof(Ptr32<TextureImage>), kReleaseTextureImage);
    }
    return slots;
}

} // namespace ogl::host
