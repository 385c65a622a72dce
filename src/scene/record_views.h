// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Checked access to the lists of a host's scene record. A view is empty when its list cannot hold
// what it says: a negative count, no data, elements too small for the record type, or a run that
// leaves the address space. An element number out of range gives null, a cluster number out of
// range an empty range; a cluster that runs past its items is cut at their end.
#pragma once

#include "ogl/host_records.h"

#include <cstddef>
#include <cstdint>

namespace ogl {

/// The elements of a LIST, `T` being a packed record or a byte.
template <class T> class ListView {
    static_assert(alignof(T) == 1, "records of a host have no alignment");

  public:
    ListView() = default;
    explicit ListView(const LIST& list) {
        const auto* data = static_cast<uint8_t*>(list.data.get());
        const int count = list.count;
        const int stride = list.elementSize;
        if (data == nullptr || count <= 0 || stride < static_cast<int>(sizeof(T)))
            return;
        const uint64_t end =
            list.data.address() + static_cast<uint64_t>(count) * static_cast<uint64_t>(stride);
        if (end > uint64_t{1} << 32)
            return;
        data_ = data;
        count_ = count;
        stride_ = stride;
    }

    int size() const { return count_; }
    bool empty() const { return count_ == 0; }
    /// Distance of two elements in bytes.
    int stride() const { return stride_; }

    /// Element `k`, or null when there is none.
    const T* at(int k) const {
        return k >= 0 && k < count_ ? reinterpret_cast<const T*>(address(k)) : nullptr;
    }
    /// Element `k`, which must exist.
    const T& operator[](int k) const { return *reinterpret_cast<const T*>(address(k)); }

  private:
    const uint8_t* address(int k) const {
        return data_ + static_cast<size_t>(k) * static_cast<size_t>(stride_);
    }

    const uint8_t* data_ = nullptr;
    int count_ = 0;
    int stride_ = 0;
};

/// A run of items: numbers `first` to `first + count - 1`, all of which exist.
struct ItemRange {
    int first = 0;
    int count = 0;
    int end() const { return first + count; }
};

/// `first` and `count` as a host wrote them, cut to the `available` items.
inline ItemRange clippedRange(int first, int count, int available) {
    if (first < 0 || count <= 0 || first >= available)
        return {};
    return {first, count < available - first ? count : available - first};
}

/// The clusters of a VLIST with items of type `T`.
template <class T> class ClusterView {
  public:
    ClusterView() = default;
    explicit ClusterView(const VLIST& list) : index_(list.index), items_(list.items) {}

    /// Number of clusters.
    int size() const { return index_.size(); }
    /// The items of all clusters.
    const ListView<T>& items() const { return items_; }
    /// The items of cluster `k`; empty when there is no such cluster.
    ItemRange cluster(int k) const {
        const INDEX* index = index_.at(k);
        return index != nullptr ? clippedRange(index->first, index->count, items_.size())
                                : ItemRange{};
    }

  private:
    ListView<INDEX> index_;
    ListView<T> items_;
};

/// The lists of a scene that drawing, picking and export walk, checked once per call.
struct SceneLists {
    explicit SceneLists(const SCENE& scene);

    ListView<OBJECT> objects;
    ClusterView<FACE> faces;            ///< cluster k = faces of object k
    ClusterView<uint8_t> triangleBytes; ///< cluster k = triangle data of face k
    ListView<MATERIAL> materials;
    ListView<TEXTURE> textures;
    ListView<TEXCOORD> texCoords;
    ListView<LIGHT> lights;
    ListView<FACELOOPS> faceLoops;
    ListView<LOOP> loops;
    ListView<LOOPPOINT> loopPoints;
    ListView<LOOPSTYLE> loopStyles;

    /// True when object `k` exists and is neither hidden nor otherwise kept from drawing.
    bool isDrawn(int k) const {
        const OBJECT* object = objects.at(k);
        return object != nullptr && (object->flags & kObjectNotDrawn) == 0;
    }
};

inline constexpr int kVerticesPerTriangle = 3;
inline constexpr int kTriangleBytes = 36;

/// Triangles of one face, as the host stores them: all positions, then all vertex normals.
struct FaceTriangles {
    const uint8_t* positions = nullptr; ///< 36 bytes per triangle, nine unaligned floats
    const uint8_t* normals = nullptr;   ///< the same shape; null without vertex normals
    int triangleCount = 0;
};

/// The triangles of face number `face` with the given `face.flags`. A size that is no multiple of
/// a triangle's bytes is rounded down.
FaceTriangles faceTriangles(const SceneLists& lists, int face, uint32_t faceFlags);

/// The texture slot that `material` names, or null when its number names none.
const TEXTURESLOT* textureSlot(const SceneLists& lists, const MATERIAL& material);

/// True when no surface of the material is drawn: it is unused, or lacks the texture without which
/// it isn't to be drawn.
bool isSkipped(const MATERIAL& material);

/// True when the slot holds a colour image of either kind.
bool holdsImage(const TEXTURESLOT& slot);

/// The host's view record, or null.
inline VIEW* viewOf(const SCENE& scene) {
    return scene.geometry.view.get();
}

/// Number of objects that a call visits: what the object cache's count says, as far as there are
/// objects. The cache need not have entries.
int visitedObjectCount(const SCENE& scene, const SceneLists& lists);

/// Entry `k` of the object cache for writing, or null; and the number of entries.
CACHEENTRY* cacheEntry(const VIEW& view, int k);
int cacheEntryCount(const VIEW& view);

/// The stamp that a host changes with its model: the light list's count.
inline uint32_t modelStamp(const SCENE& scene) {
    return static_cast<uint32_t>(scene.geometry.lights.count);
}

/// The zoom window of a view of `width` x `height` pixels: magnification and shift of the view in
/// units of the full view height, both as the host asked for; 1 and no shift without a window.
struct ZoomWindow {
    double zoom = 1.0;
    double centerX = 0.0; ///< positive to the right
    double centerY = 0.0; ///< positive upwards
};
ZoomWindow zoomWindow(const SCENE& scene, int width, int height);

} // namespace ogl
