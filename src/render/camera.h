// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/frustum.h"
#include "math/matrix4f.h"
#include "math/vector3.h"
#include "ogl/host_records.h"
#include "platform/win32.h"

#include <optional>

namespace ogl {

/// Where a picture is taken from, and how it is projected.
class Camera {
  public:
    Camera() = default;
    Camera(const Camera&) = default;
    Camera& operator=(const Camera&) = default;

    /// Loads GL's projection matrix; leaves the matrix mode at GL_PROJECTION.
    virtual void applyProjection() const = 0;
    virtual Matrix4f projectionMatrix() const = 0;
    /// Aims an orthographic camera at a box, in two steps; nothing for other cameras.
    virtual void setBounds(const Box& box) = 0;
    virtual void setDirection(Vec3 direction) = 0;
    virtual ~Camera() = default;

    /// Loads GL's model-view matrix; leaves the matrix mode at GL_MODELVIEW.
    void applyView() const;
    /// The viewport, the projection and the view.
    void apply() const;

    Vec3 position{};
    Vec3 target{};
    Vec3 up{0.0f, 0.0f, 1.0f};
    float near = 0.0f; ///< distances along the view direction
    float far = 0.0f;
    float fov = 0.0f;  ///< vertical, radians
    int viewportX = 0; ///< pixels
    int viewportY = 0;
    int viewportWidth = 0;
    int viewportHeight = 0;
    float aspect = 1.0f;
    double offsetX = 0.0; ///< lens shift, in half view widths and heights
    double offsetY = 0.0;
    double scale = 1.0; ///< zoom
    Box bounds;

  protected:
    /// Starts the projection matrix with the zoom and the lens shift.
    void applyLens() const;
};

class PerspectiveCamera : public Camera {
  public:
    /// The projection of `tile` while there is one.
    void applyProjection() const override;
    /// Applies the projection and reads it back from GL.
    Matrix4f projectionMatrix() const override;
    void setBounds(const Box&) override {}
    void setDirection(Vec3) override {}
    /// What the whole picture shows, zoom and lens shift included.
    Frustum pictureFrustum() const;

    std::optional<Frustum> tile; ///< the part of a picture that the viewport shows; none = all
};

class OrthoCamera : public Camera {
  public:
    void applyProjection() const override;
    /// The perspective matrix of the camera's field of view, aspect and planes; needs no GL.
    Matrix4f projectionMatrix() const override;
    void setBounds(const Box& box) override { bounds = box; }
    /// Places the camera so that it sees the whole box along `direction` (unit length).
    void setDirection(Vec3 direction) override;
};

/// Size of the shadow maps and of the viewports of light cameras, pixels.
inline constexpr int kShadowMapSize = 2048;

/// Fills the view camera from the scene for a picture of `width` x `height` pixels.
void setViewCamera(Camera& camera, const SCENE& scene, int width, int height, float farPlane);

/// The up vector of a spot light's camera that looks along `direction` (unit length).
Vec3 spotUpVector(Vec3 direction);

} // namespace ogl
