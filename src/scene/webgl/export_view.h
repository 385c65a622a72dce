// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "scene/record_views.h"

namespace ogl {

/// What an exported document says of the view and its light. No value is infinite or not a number
/// as long as the scene's own are none.
struct ExportView {
    Vec3 eye;         ///< of the camera
    Vec3 center;      ///< the point that it turns around: on the line of sight, as far from the
                      ///< eye as the middle of the scene; the eye when it looks nowhere
    float fov;        ///< vertical, radians
    float aspect;     ///< width / height; 1 for a view without a size
    double extent[2]; ///< of the zoom window, to the right and upwards

    Vec3 lightEye; ///< of the light's camera, which sees all that is exported
    Vec3 lightTarget;
    float lightNear;
    float lightFar;
    double lightHalfSize; ///< half the width and height of its picture
    float diagonal;       ///< of the scene's box, and a tenth more
    Vec3 toLight;         ///< unit length; zero when the sun has no direction
    Vec3 intensity;
    float ambient;
};

/// `bounds`: of all exported vertices. A scene without lights has a black light from above.
ExportView exportView(const SCENE& scene, const SceneLists& lists, const Box& bounds, int width,
                      int height);

} // namespace ogl
