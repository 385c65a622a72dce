// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/scene_builder.h"

#include "host/polygon_face.h"
#include "host/scene_state.h"
#include "host/scene_writer.h"
#include "host/soup/soup_faces.h"
#include "host/view_projection.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace ogl::host {

struct SceneBuilder::Parts {
    explicit Parts(double unitScale) : grid(unitScale), scene(memory.make<SCENE>()) {
        scene->geometry.unitScale = unitScale;
        scene->geometry.view = memory.make<VIEW>();
        writeDefaultState(*scene);
    }

    VIEW& view() const { return *scene->geometry.view.get(); }
    ObjectPart& object(ObjectId id) { return objects.at(static_cast<size_t>(id)); }

    void requireOpen() const {
        if (built)
            throw std::logic_error("the scene has been built");
    }

    HostMemory memory;
    LoopGrid grid;
    SCENE* scene;
    bool built = false;
    std::vector<Material> materials;
    std::vector<Texture> textures;
    std::vector<ObjectPart> objects;
    std::vector<Lamp> lamps;
    std::vector<Path> paths;
    Sun sun;
    Camera camera;
    std::optional<ViewWindow> viewWindow;
};

SceneBuilder::SceneBuilder(double unitScale) : parts_(std::make_unique<Parts>(unitScale)) {}
SceneBuilder::~SceneBuilder() = default;
SceneBuilder::SceneBuilder(SceneBuilder&&) noexcept = default;
SceneBuilder& SceneBuilder::operator=(SceneBuilder&&) noexcept = default;

MaterialId SceneBuilder::addMaterial(const Material& material) {
    parts_->requireOpen();
    if (material.texture != kNone)
        static_cast<void>(parts_->textures.at(static_cast<size_t>(material.texture)));
    if (parts_->materials.size() > static_cast<size_t>(std::numeric_limits<int16_t>::max()))
        throw std::length_error("the scene has too many materials");
    parts_->materials.push_back(material);
    return static_cast<MaterialId>(parts_->materials.size()) - 1;
}

TextureId SceneBuilder::addTexture(Texture texture) {
    parts_->requireOpen();
    if (parts_->textures.size() > static_cast<size_t>(std::numeric_limits<int16_t>::max()))
        throw std::length_error("the scene has too many textures");
    parts_->textures.push_back(std::move(texture));
    return static_cast<TextureId>(parts_->textures.size()) - 1;
}

ObjectId SceneBuilder::addObject(std::string name, const ObjectOptions& options) {
    parts_->requireOpen();
    parts_->objects.push_back({std::move(name), options, {}});
    return static_cast<ObjectId>(parts_->objects.size()) - 1;
}

bool SceneBuilder::addPolygon(ObjectId object, const Polygon& polygon) {
    parts_->requireOpen();
    ObjectPart& part = parts_->object(object);
    if (polygon.material != kNone)
        static_cast<void>(parts_->materials.at(static_cast<size_t>(polygon.material)));
    auto face = makePolygonFace(polygon, parts_->grid);
    if (!face)
        return false;
    face->flags |= part.options.faceFlags;
    part.faces.add(*face, parts_->grid);
    return true;
}

SoupReport SceneBuilder::addTriangleSoup(ObjectId object, const TriangleSoup& soup,
                                         const SoupOptions& options) {
    parts_->requireOpen();
    ObjectPart& part = parts_->object(object);
    SoupOptions all = options;
    all.faceFlags |= part.options.faceFlags;
    return addSoupFaces(part.faces, parts_->grid, soup, all, materialCount());
}

void SceneBuilder::addLamp(const Lamp& lamp) {
    parts_->requireOpen();
    parts_->lamps.push_back(lamp);
}

int SceneBuilder::addPath(const Path& path) {
    parts_->requireOpen();
    parts_->paths.push_back(path);
    return static_cast<int>(parts_->paths.size()) - 1;
}

SCENE* SceneBuilder::build() {
    parts_->requireOpen();
    Parts& parts = *parts_;
    GEOMETRY& geometry = parts.scene->geometry;
    writeGeometry(parts.memory, geometry, parts.objects);
    writeMaterials(parts.memory, geometry, parts.materials);
    writeTextureSlots(parts.memory, geometry, parts.textures.size());
    writeLights(parts.memory, geometry, parts.lamps);
    writePaths(parts.memory, *parts.scene, parts.paths);
    fillList(parts.memory, geometry.view.get()->objectCache, parts.objects.size(),
             sizeof(CACHEENTRY));
    parts.built = true;
    writeSun(*parts.scene, parts.sun);
    markChanged();
    return parts.scene;
}

SCENE* SceneBuilder::scene() const {
    return parts_->built ? parts_->scene : nullptr;
}

void SceneBuilder::setSite(double width, double depth, double height) {
    writeSite(*parts_->scene, width, depth, height);
}

void SceneBuilder::setCamera(const Camera& camera) {
    parts_->camera = camera;
    writeCamera(parts_->scene->geometry, camera);
}

void SceneBuilder::setViewWindow(const std::optional<ViewWindow>& window) {
    parts_->viewWindow = window;
    writeViewWindow(*parts_->scene, window);
}

void SceneBuilder::setRenderMode(int32_t mode) {
    parts_->scene->renderMode = mode;
}

void SceneBuilder::setDrawingStyle(const DrawingStyle& style) {
    writeDrawingStyle(*parts_->scene, style);
}

void SceneBuilder::setSketchStyle(const SketchStyle& style) {
    writeSketchStyle(*parts_->scene, style);
}

void SceneBuilder::setPhotoStyle(const PhotoStyle& style) {
    writePhotoStyle(*parts_->scene, style);
}

void SceneBuilder::setSun(const Sun& sun) {
    parts_->sun = sun;
    writeSun(*parts_->scene, sun);
}

void SceneBuilder::setSunDate(const std::optional<SunDate>& date) {
    writeSunDate(*parts_->scene, date);
}

void SceneBuilder::setViewFlags(uint32_t flags) {
    parts_->view().flags = flags;
}

void SceneBuilder::setPlanView(bool on) {
    const uint32_t flags = parts_->scene->geometry.flags;
    parts_->scene->geometry.flags = on ? flags | kGeometryPlanView : flags & ~kGeometryPlanView;
}

void SceneBuilder::setCurrentPath(int path) {
    parts_->scene->currentPath = path;
}

void SceneBuilder::setObjectVisible(ObjectId object, bool visible) {
    ObjectPart& part = parts_->object(object);
    part.options.visible = visible;
    if (!parts_->built)
        return;
    writeObjectVisible(*parts_->scene, object, visible);
}

void SceneBuilder::setObjectHighlight(ObjectId object, uint32_t bits) {
    static_cast<void>(parts_->object(object));
    if (parts_->built)
        writeObjectHighlight(*parts_->scene, object, bits);
}

void SceneBuilder::setHud(uint8_t flags) {
    parts_->scene->hudFlags = flags;
}

void SceneBuilder::setOverlayColor(Color color) {
    parts_->view().overlayColor = {color.red, color.green, color.blue};
}

void SceneBuilder::setTooltip(std::string_view text, int x, int y) {
    writeTooltip(parts_->view(), text, {x, y});
}

void SceneBuilder::setMessage(std::string_view text) {
    constexpr size_t kMessageBytes = 4096;
    VIEW& view = parts_->view();
    if (!view.messageText)
        view.messageText = static_cast<uint8_t*>(parts_->memory.allocate(kMessageBytes));
    const size_t length = std::min(text.size(), kMessageBytes - 1);
    std::copy_n(text.begin(), length, view.messageText.get());
    view.messageText.get()[length] = 0;
}

void SceneBuilder::placePaths(int viewWidth, int viewHeight) {
    if (!parts_->built || viewWidth < 1 || viewHeight < 1)
        return;
    const ViewProjection view(parts_->camera, parts_->viewWindow, viewWidth, viewHeight);
    for (size_t k = 0; k < parts_->paths.size(); ++k)
        writePathPlace(*parts_->scene, static_cast<int>(k),
                       placeOfPath(parts_->paths[k].points, view));
}

void SceneBuilder::markChanged() {
    if (parts_->built)
        markObjectsChanged(*parts_->scene);
}

int SceneBuilder::objectCount() const {
    return static_cast<int>(parts_->objects.size());
}

const std::string& SceneBuilder::objectName(ObjectId object) const {
    return parts_->object(object).name;
}

int SceneBuilder::materialCount() const {
    return static_cast<int>(parts_->materials.size());
}

const std::string& SceneBuilder::materialName(MaterialId material) const {
    return parts_->materials.at(static_cast<size_t>(material)).name;
}

Box SceneBuilder::objectBounds(ObjectId object) const {
    return parts_->object(object).faces.bounds();
}

Box SceneBuilder::bounds() const {
    Box box;
    for (const ObjectPart& part : parts_->objects) {
        if (const Box& one = part.faces.bounds(); !one.empty()) {
            box.add(one.low);
            box.add(one.high);
        }
    }
    return box;
}

size_t SceneBuilder::triangleCount() const {
    size_t count = 0;
    for (const ObjectPart& part : parts_->objects)
        count += part.faces.triangleCount();
    return count;
}

const std::vector<Texture>& SceneBuilder::textures() const {
    return parts_->textures;
}

const std::vector<Path>& SceneBuilder::paths() const {
    return parts_->paths;
}

std::vector<SceneBuilder::TextureLoad> SceneBuilder::textureLoads() {
    std::vector<TextureLoad> loads;
    if (!parts_->built)
        return loads;
    auto* bytes = static_cast<uint8_t*>(parts_->scene->geometry.textures.data.get());
    for (size_t i = 0; i < parts_->textures.size(); ++i) {
        uint8_t* slot = bytes + i * sizeof(TEXTURE) + offsetof(TEXTURE, slot);
        for (const TextureFile& file : parts_->textures[i].files) {
            uint8_t* place = slot + static_cast<size_t>(file.usage) * sizeof(Ptr32<void>);
            loads.push_back({&file, reinterpret_cast<void**>(place)});
        }
    }
    return loads;
}

std::vector<SceneBuilder::LibrarySlot> SceneBuilder::librarySlots() {
    return parts_->built ? usedLibrarySlots(*parts_->scene) : std::vector<LibrarySlot>{};
}

void SceneBuilder::storeImage(void** slot, TextureImage* image) {
    *reinterpret_cast<Ptr32<TextureImage>*>(slot) = image;
}

} // namespace ogl::host
