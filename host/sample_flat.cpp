// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample_flat.h"

#include "host/sample/flat_rooms.h"

namespace ogl::host {

namespace {

Lamp pointLamp(Vec3 at, float intensity) {
    Lamp lamp;
    lamp.position = at;
    lamp.red = intensity;
    lamp.green = intensity * 0.88f;
    lamp.blue = intensity * 0.7f;
    return lamp;
}

Lamp spotLamp(Vec3 at, Vec3 target, float intensity) {
    Lamp lamp = pointLamp(at, intensity);
    lamp.kind = Lamp::Kind::Spot;
    lamp.target = target;
    lamp.coneAngleDegrees = 40.0;
    return lamp;
}

void addLights(SceneBuilder& builder) {
    builder.addLamp(pointLamp({1.7, 2.2, 1.62}, 0.6f));
    builder.addLamp(pointLamp({2.7, 2.2, 1.62}, 0.6f));
    builder.addLamp(pointLamp({5.45, 2.9, 1.1}, 0.5f));
    builder.addLamp(pointLamp({10.3, 2.75, 2.12}, 0.7f));
    builder.addLamp(pointLamp({6.0, 7.0, 2.15}, 0.7f));
    for (const double x : {1.6, 2.5, 3.4})
        builder.addLamp(spotLamp({x, 4.5, 2.55}, {x, 4.9, 0.9}, 1.2f));
    builder.addLamp(spotLamp({10.0, 6.0, 2.55}, {10.0, 5.6, 0.9}, 2.0f));
    builder.addLamp(spotLamp({11.3, 7.7, 2.55}, {11.7, 7.7, 0.3}, 2.0f));
    builder.addLamp(pointLamp({10.3, 7.2, 2.2}, 1.4f));
}

std::vector<NamedView> flatViews(ObjectId roof) {
    const Vec3 up{0.0, 0.0, 1.0};
    return {
        {"outside", {{17.2, -9.6, 11.4}, {6.3, 3.9, 0.3}, up, 40.0}, {roof}},
        {"inside", {{0.75, 3.95, 1.65}, {5.6, 1.75, 0.85}, up, 62.0}, {}},
        {"living", {{7.7, 4.75, 1.6}, {3.9, 1.2, 0.75}, up, 60.0}, {}},
        {"kitchen", {{4.4, 1.0, 1.6}, {1.7, 4.9, 1.05}, up, 55.0}, {}},
        {"bedroom", {{9.0, 0.95, 1.6}, {11.0, 4.4, 0.8}, up, 62.0}, {}},
        {"bath", {{8.4, 8.35, 1.65}, {11.2, 6.2, 0.75}, up, 66.0}, {}},
        {"street", {{18.6, -11.5, 2.0}, {6.9, 1.5, 1.15}, up, 40.0}, {}},
        {"plan", {{6.3, 3.5, 92.0}, {6.3, 3.5, 0.0}, {0.0, 1.0, 0.0}, 8.4}, {roof}},
    };
}

} // namespace

SampleScene makeSampleFlat() {
    SampleScene sample;
    sample.name = "flat";
    SceneBuilder& builder = sample.builder;
    const FlatPaints paints(builder);
    const FlatSite flat{builder, paints};
    const ObjectId roof = addShell(flat);
    addTerraceAndGarden(flat);
    addLivingRoom(flat);
    addKitchen(flat);
    addDining(flat);
    addBedroom(flat);
    addBathroom(flat);
    addHall(flat);
    addStudy(flat);

    addLights(builder);
    builder.addPath({"through the flat",
                     {{6.0, 11.5, 1.6},
                      {6.0, 8.0, 1.6},
                      {5.95, 5.3, 1.6},
                      {4.3, 4.2, 1.6},
                      {4.0, 3.4, 1.6},
                      {6.9, 3.4, 1.6},
                      {7.6, 4.3, 1.6},
                      {8.8, 4.3, 1.6},
                      {10.0, 2.6, 1.6}},
                     {4, 8}});
    builder.setCurrentPath(0);
    builder.setSite(26.0, 24.0, 4.0);
    builder.setSun({140.0, 42.0, {255, 246, 230}, 110, true});
    // 21 June 2023, half past two in Vienna's summer.
    builder.setSunDate(SunDate{1687348800u, 12 * 60 + 30, 48.2, 16.4, 90.0});
    SketchStyle sketch;
    sketch.enabled = false;
    builder.setSketchStyle(sketch);
    PhotoStyle photo;
    photo.portalIntensity = 500;
    builder.setPhotoStyle(photo);
    sample.views = flatViews(roof);
    builder.setCamera(sample.views.front().camera);
    return sample;
}

} // namespace ogl::host
