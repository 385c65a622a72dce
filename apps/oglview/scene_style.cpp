// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/scene_style.h"

#include "oglview/ray_caster.h"
#include "oglview/scene_triangles.h"
#include "oglview/user_error.h"
#include "scene/sun/sun_position.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace oglview {

namespace {

// Mode 7 has no tone curve: with more light than this sunlit walls lose their colours. Files are
// drawn with OpenGL's own lighting, which takes a quarter of the sun.
constexpr int kSunPercent = 19;
constexpr int kFileSunPercent = 70;
constexpr float kAmbientLight = 0.14f;

// Photo mode.
constexpr double kHighSun = 30.0; // degrees; below, the air dims and reddens the sun

/// Light and tone where nothing else is asked for. Inside, the eye is used to less light.
struct Daylight {
    double sunPercent;
    double exposure;
    double gamma;
    int ambientPercent;
    int portalIntensity;
};
constexpr Daylight kOutside{190.0, 0.8, 1.0, 60, -20000};
constexpr Daylight kInside{520.0, 0.42, 0.9, 50, 500};

const Daylight& daylightOf(const StyleOptions& style) {
    return style.photo.interior.value_or(false) ? kInside : kOutside;
}

constexpr ogl::host::Color kHighSunColor{255, 246, 232};
constexpr ogl::host::Color kLowSunColor{255, 150, 84};

uint8_t between(uint8_t from, uint8_t to, double share) {
    return static_cast<uint8_t>(std::lround(from + (to - from) * share));
}

/// How much of a high sun's strength one at this height has.
double sunShare(double elevationDegrees) {
    return std::sqrt(std::clamp(elevationDegrees / kHighSun, 0.0, 1.0));
}

void dimLowSun(ogl::host::Sun& sun, double highPercent) {
    const double share = sunShare(sun.elevationDegrees);
    sun.color = {between(kLowSunColor.red, kHighSunColor.red, share),
                 between(kLowSunColor.green, kHighSunColor.green, share),
                 between(kLowSunColor.blue, kHighSunColor.blue, share)};
    sun.intensityPercent = static_cast<int>(std::lround(highPercent * (0.3 + 0.7 * share)));
}

uint32_t dayNumber(const CalendarDay& day) {
    const std::optional<uint32_t> number = ogl::sunDate(day.year, day.month, day.day);
    if (!number)
        throw UserError("the sun of photo mode is known from 1970 to 6 February 2106");
    return *number;
}

void applyPhoto(ogl::host::SceneBuilder& builder, const StyleOptions& style) {
    builder.setPhotoStyle(photoStyleOf(style));
    ogl::host::SketchStyle sketch;
    sketch.enabled = style.photo.sketchPercent.has_value();
    sketch.strengthPercent = style.photo.sketchPercent.value_or(sketch.strengthPercent);
    builder.setSketchStyle(sketch);
    if (!style.sunMoment) {
        builder.setSunDate(std::nullopt);
        return;
    }
    const DayAndPlace& at = *style.sunMoment;
    builder.setSunDate(
        ogl::host::SunDate{dayNumber(at.day), at.minutes, at.latitude, at.longitude, at.north});
}

ogl::host::Sun sunAt(const SunPosition& position) {
    ogl::host::Sun sun;
    sun.azimuthDegrees = position.azimuthDegrees + 180.0; // its light travels the other way
    sun.elevationDegrees = position.elevationDegrees;
    return sun;
}

/// Whether the camera stands in a room whose windows are known: something visible is above it.
bool standsInside(const LoadedScene& scene, const ogl::host::Camera& camera) {
    if (!scene.hasPortals)
        return false;
    constexpr double kHighestCeiling = 20.0;
    const TriangleCorners corners = visibleTriangles(*scene.builder.scene());
    return RayCaster(corners).firstHit(camera.eye, {0.0, 0.0, 1.0}, kHighestCeiling) <
           kHighestCeiling;
}

} // namespace

ogl::host::PhotoStyle photoStyleOf(const StyleOptions& style) {
    const PhotoLook& look = style.photo;
    ogl::host::PhotoStyle photo;
    const Daylight& daylight = daylightOf(style);
    photo.exposure = static_cast<float>(look.exposure.value_or(daylight.exposure));
    photo.gamma = static_cast<float>(look.gamma.value_or(daylight.gamma));
    photo.saturation = static_cast<float>(look.saturation.value_or(1.0));
    photo.ambientPercent = look.ambientPercent.value_or(daylight.ambientPercent);
    photo.ambientOcclusionPercent = look.occlusionPercent.value_or(photo.ambientOcclusionPercent);
    photo.monochrome = look.monochrome;
    photo.interior = look.interior.value_or(false);
    // The sky that is seen through windows darkens to an eighth when the sun sets.
    photo.portalIntensity =
        daylight.portalIntensity -
        static_cast<int>(std::lround(3000.0 * (1.0 - sunShare(style.sun.elevationDegrees))));
    return photo;
}

uint32_t drawFlagsOf(const StyleOptions& style) {
    uint32_t flags = ogl::kDrawInlineTextures;
    if (style.surfaces != SurfaceLook::White)
        flags |= ogl::kDrawFullQuality;
    if (style.surfaces == SurfaceLook::Grey)
        flags |= ogl::kDrawGrey;
    if (style.shadows)
        flags |= ogl::kDrawShadows;
    return flags;
}

void completeStyle(StyleOptions& style, const LoadedScene& scene, const ogl::host::Camera& camera) {
    if (style.sunMoment)
        style.sun = sunInModel(*style.sunMoment);
    if (style.mode == ogl::kRenderModePhoto && !style.photo.interior)
        style.photo.interior = standsInside(scene, camera);
}

void applyStyle(ogl::host::SceneBuilder& builder, const StyleOptions& style) {
    ogl::host::DrawingStyle drawing;
    drawing.hiddenEdges = style.hiddenEdges;
    drawing.edgeMarks = style.roundEnds;
    drawing.lineWeight = style.lineWeight;
    drawing.edgeOpacityPercent = style.edgeOpacityPercent.value_or(drawing.edgeOpacityPercent);
    drawing.drawingBackground = style.background;
    if (style.background)
        drawing.background = *style.background;
    builder.setDrawingStyle(drawing);
    ogl::host::Sun sun = sunAt(style.sun);
    if (style.mode == ogl::kRenderModeShadow) {
        sun.intensityPercent = style.throughFile ? kFileSunPercent : kSunPercent;
        ogl::host::PhotoStyle light;
        light.lightAmbient = kAmbientLight;
        builder.setPhotoStyle(light);
    }
    if (style.mode == ogl::kRenderModePhoto) {
        dimLowSun(sun, daylightOf(style).sunPercent);
        applyPhoto(builder, style);
    }
    builder.setSun(sun);
    builder.setRenderMode(style.mode);
}

} // namespace oglview
