// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ogl::test {

/// One outline of a face. Points are in the host's integer units: thousandths at unit scale 1.
struct LoopShape {
    std::vector<std::array<int32_t, 3>> points;
    LOOPSTYLE style;
};

struct FaceShape {
    std::vector<Vec3> triangles; ///< three per triangle
    std::vector<Vec3> normals;   ///< one per vertex, or none
    VEC3D normal{0.0, 0.0, 1.0}; ///< as the host stores it; the library negates it
    int16_t material = 0;
    uint32_t flags = 0; ///< the vertex-normal bit is added where there are normals
    std::vector<std::array<float, 2>> texCoords;
    std::vector<LoopShape> loops;
};

/// A closed loop's style: full opacity, black.
LOOPSTYLE closedStyle();

/// A material as hosts make them: opaque, white, textures from the inline slot, in use.
MATERIAL plainMaterial();

/// A planar quadrilateral a, b, c, d as two triangles and one outline. Seen from the side where
/// the corners run clockwise it is a front face.
FaceShape quad(Vec3 a, Vec3 b, Vec3 c, Vec3 d, int16_t material = 0);

/// Element `k` of a list that holds such records.
template <class T> T& element(const LIST& list, int k) {
    return static_cast<T*>(list.data.get())[k];
}

/// A host's scene in memory below 4 GiB. Records are collected first; commit() lays them out, each
/// list followed by a stretch of kCanary bytes, so that what is read past a list shows.
class SceneFixture {
  public:
    static constexpr uint8_t kCanary = 0x5a;

    SceneFixture();
    /// Releases what the library parked in the object cache, then the records.
    ~SceneFixture();
    SceneFixture(const SceneFixture&) = delete;
    SceneFixture& operator=(const SceneFixture&) = delete;

    SCENE& scene() { return *scene_; }
    GEOMETRY& geometry() { return scene_->geometry; }
    VIEW& view() { return *view_; }
    LIST& objects() { return *objects_; }
    CACHEENTRY& entry(int k) { return element<CACHEENTRY>(view_->objectCache, k); }
    OBJECT& object(int k) { return element<OBJECT>(*objects_, k); }
    FACE& face(int f) { return element<FACE>(geometry().clusters.items, f); }
    MATERIAL& material(int m) { return element<MATERIAL>(geometry().materials, m); }
    LIGHT& light(int l) { return element<LIGHT>(geometry().lights, l); }

    /// Each returns the number of what it added.
    int addMaterial(const MATERIAL& material);
    int addTexture(const TEXTURESLOT& slot);
    int addLight(const LIGHT& light);
    int addObject(uint32_t flags = 0, uint8_t kind = 0);
    /// A face of the object added last.
    int addFace(const FaceShape& shape);

    /// Lays the lists out and fills the records. Later additions need another commit().
    void commit();

    /// Looks from `eye` to `target` with a vertical field of view of `fov` radians, z up.
    void look(Vec3 eye, Vec3 target, double fov);

  private:
    template <class T> void layOut(LIST& list, const std::vector<T>& elements);
    void release();

    SCENE* scene_;
    VIEW* view_;
    LIST* objects_;
    std::vector<void*> blocks_;

    std::vector<OBJECT> objectRecords_;
    std::vector<INDEX> clusters_;
    std::vector<FACE> faces_;
    std::vector<INDEX> triangleClusters_;
    std::vector<uint8_t> triangleBytes_;
    std::vector<MATERIAL> materials_;
    std::vector<TEXTURE> textures_;
    std::vector<TEXCOORD> texCoords_;
    std::vector<LIGHT> lights_;
    std::vector<FACELOOPS> faceLoops_;
    std::vector<LOOP> loops_;
    std::vector<LOOPPOINT> loopPoints_;
    std::vector<LOOPSTYLE> loopStyles_;
    std::vector<CACHEENTRY> cache_;
};

} // namespace ogl::test
