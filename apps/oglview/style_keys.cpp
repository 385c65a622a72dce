// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/style_keys.h"

#include "oglview/scene_style.h"

#include <algorithm>

namespace oglview {
namespace {

constexpr int kSketchPercent = 60;
constexpr int kDayMinutes = 24 * 60;

/// One step of a factor of the tone curve: eight double it.
void scale(std::optional<double>& factor, float now, double step) {
    factor = std::clamp(static_cast<double>(now) * step, 0.05, 20.0);
}

/// A quarter of an hour earlier or later; without a day, as far around as the earth turns in it.
void moveSun(StyleOptions& style, int quarters) {
    if (style.sunMoment) {
        int& minutes = style.sunMoment->minutes;
        minutes = (minutes + kDayMinutes + 15 * quarters) % kDayMinutes;
    } else {
        style.sun.azimuthDegrees -= 3.75 * quarters; // seen from above, it goes clockwise
    }
}

} // namespace

bool changeStyle(int key, StyleOptions& style) {
    constexpr double kStep = 1.0905077326652577; // 2^(1/8)
    PhotoLook& photo = style.photo;
    switch (key) {
    case '1':
        style.mode = ogl::kRenderModeDrawing;
        return true;
    case '2':
        style.mode = ogl::kRenderModeEdges;
        return true;
    case '3':
        style.mode = ogl::kRenderModeShadow;
        return true;
    case '4':
        style.mode = ogl::kRenderModePhoto;
        return true;
    case 'H':
        style.hiddenEdges = !style.hiddenEdges;
        return true;
    case 'J':
    case 'L':
        moveSun(style, key == 'L' ? 1 : -1);
        return true;
    case 'K':
        photo.sketchPercent =
            photo.sketchPercent ? std::nullopt : std::optional<int>(kSketchPercent);
        return true;
    case 'O':
        photo.occlusionPercent = photo.occlusionPercent == 0 ? std::nullopt : std::optional<int>(0);
        return true;
    case 'M':
        photo.monochrome = !photo.monochrome;
        return true;
    case 'I':
        photo.interior = !photo.interior.value_or(false);
        return true;
    case 'V':
    case 'C':
        scale(photo.exposure, photoStyleOf(style).exposure, key == 'V' ? kStep : 1.0 / kStep);
        return true;
    case 'G':
    case 'B':
        scale(photo.gamma, photoStyleOf(style).gamma, key == 'G' ? kStep : 1.0 / kStep);
        return true;
    case 'U':
    case 'Y':
        scale(photo.saturation, photoStyleOf(style).saturation, key == 'U' ? kStep : 1.0 / kStep);
        return true;
    default:
        return false;
    }
}

const std::vector<std::string>& styleKeys() {
    static const std::vector<std::string> keys = {
        "1, 2, 3, 4: drawing, edges, shadow, photo",
        "H: hidden edges",
        "J, L: sun earlier, later",
        "K: sketch edges",
        "O: darker corners on, off",
        "M: one colour",
        "I: sunlight through windows alone",
        "C, V: darker, brighter",
        "B, G: lower, higher gamma",
        "Y, U: paler, stronger colours",
    };
    return keys;
}

} // namespace oglview
