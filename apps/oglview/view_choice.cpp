// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/view_choice.h"

#include "oglview/interior_view.h"
#include "oglview/scene_triangles.h"
#include "oglview/user_error.h"
#include "oglview/view_fit.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string_view>

namespace oglview {
namespace {

using ogl::host::Camera;
using ogl::host::NamedView;
using ogl::host::Vec3;

constexpr double kMargin = 0.08;
constexpr double kOutsideFieldOfView = 35.0;

struct GeneralView {
    std::string_view name;
    Vec3 forward;
    Vec3 up;
    bool parallel; ///< nearly so
};
constexpr Vec3 kUp{0.0, 0.0, 1.0};
// Elevations are named by the side that is seen: the front faces -y.
constexpr GeneralView kGeneralViews[] = {
    {"outside", {0.62, 0.78, -0.30}, kUp, false}, {"plan", {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}, true},
    {"front", {0.0, 1.0, 0.0}, kUp, true},        {"back", {0.0, -1.0, 0.0}, kUp, true},
    {"left", {1.0, 0.0, 0.0}, kUp, true},         {"right", {-1.0, 0.0, 0.0}, kUp, true},
};
constexpr std::string_view kInside = "inside";

std::string listOf(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

Camera ownView(LoadedScene& scene, const NamedView& view) {
    for (const ogl::host::ObjectId object : view.hiddenObjects)
        scene.builder.setObjectVisible(object, false);
    return view.camera;
}

Camera generalView(LoadedScene& scene, const std::string& name, double aspect) {
    const TriangleCorners corners = visibleTriangles(*scene.builder.scene());
    if (corners.empty())
        throw UserError("nothing is left to draw: every object is hidden");
    if (name == kInside) {
        // At another scale people would not fit in, and the near plane hides what is close.
        const bool atItsSize = scene.scale == 1.0;
        if (const auto camera = interiorView(corners, aspect); camera && atItsSize)
            return *camera;
        throw UserError("'" + scene.name + "' has no room to look around in");
    }
    const auto* found = std::ranges::find(kGeneralViews, name, &GeneralView::name);
    if (found == std::end(kGeneralViews))
        throw UserError("there is no view '" + name + "'; views are: " + listOf(viewsOf(scene)));
    ogl::host::Box box;
    for (const Vec3& corner : corners)
        box.add(corner);
    const double fieldOfView = found->parallel
                                   ? nearlyParallelFieldOfView(length(box.high - box.low), aspect)
                                   : kOutsideFieldOfView;
    return fitView(corners, {found->forward, found->up, fieldOfView}, aspect, kMargin);
}

Camera namedView(LoadedScene& scene, const std::string& name, double aspect) {
    const auto own = std::ranges::find(scene.views, name, &NamedView::name);
    if (own != scene.views.end())
        return ownView(scene, *own);
    if (name.empty() && !scene.views.empty())
        return ownView(scene, scene.views.front());
    return generalView(scene, name.empty() ? std::string(kGeneralViews[0].name) : name, aspect);
}

/// A point that the user gives is in the model's metres.
Vec3 toScene(const LoadedScene& scene, Vec3 point) {
    return point * scene.scale;
}

void applyGiven(const LoadedScene& scene, const ViewOptions& options, Camera& camera) {
    const Vec3 sight = camera.target - camera.eye;
    if (options.eye) {
        camera.eye = toScene(scene, *options.eye);
        // Without a target of its own the given eye keeps the view's direction inside a room and
        // looks at the scene's middle from outside.
        if (!options.target)
            camera.target = options.view == kInside ? camera.eye + sight : camera.target;
    }
    if (options.target)
        camera.target = toScene(scene, *options.target);
    if (options.up)
        camera.up = *options.up;
    if (options.fieldOfViewDegrees)
        camera.fieldOfViewDegrees = *options.fieldOfViewDegrees;
    const Vec3 forward = camera.target - camera.eye;
    if (length(forward) < 1e-6)
        throw UserError("the camera's eye and target are the same point");
    if (length(cross(normalized(forward), normalized(camera.up))) < 1e-6) {
        if (options.up)
            throw UserError("the camera's up direction is its view direction");
        camera.up = {0.0, 1.0, 0.0}; // straight down or up: the plan's way round
    }
}

} // namespace

std::vector<std::string> viewsOf(const LoadedScene& scene) {
    std::vector<std::string> general{std::string(kGeneralViews[0].name), std::string(kInside)};
    for (const GeneralView& view : std::span(kGeneralViews).subspan(1))
        general.emplace_back(view.name);
    std::vector<std::string> names;
    for (const NamedView& view : scene.views)
        names.push_back(view.name);
    for (const std::string& name : general)
        if (std::ranges::find(scene.views, name, &NamedView::name) == scene.views.end())
            names.push_back(name);
    return names;
}

Camera setView(LoadedScene& scene, const ViewOptions& options, const Size& size) {
    Camera camera = namedView(scene, options.view, static_cast<double>(size.width) / size.height);
    applyGiven(scene, options, camera);
    scene.builder.setCamera(camera);
    scene.builder.setViewWindow(options.zoomWindow);
    return camera;
}

} // namespace oglview
