// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/shared_buffer.h"
#include "math/vector3.h"
#include "platform/win32.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace ogl {

class ViewVolume;

/// Flags of a batch.
inline constexpr uint32_t kBatchNoShadow = 0x1;    ///< left out of shadow maps
inline constexpr uint32_t kBatchUnlit = 0x2;       ///< drawn without lighting
inline constexpr uint32_t kBatchTranslucent = 0x8; ///< only in the blended pass

/// Flags of a draw.
inline constexpr unsigned kDrawPositions = 0x1;
inline constexpr unsigned kDrawColors = 0x2; ///< per-vertex colours, where there are any

/// Leaves elements that a resize adds unset: builders write each one once.
template <class T> struct UnsetAllocator : std::allocator<T> {
    template <class U> struct rebind { using other = UnsetAllocator<U>; };
    template <class U> void construct(U* at) { ::new (static_cast<void*>(at)) U; }
    template <class U, class... Args> void construct(U* at, Args&&... args) {
        ::new (static_cast<void*>(at)) U(std::forward<Args>(args)...);
    }
};

using Vec3Array = std::vector<Vec3, UnsetAllocator<Vec3>>;
using Vec4Array = std::vector<Vec4, UnsetAllocator<Vec4>>;

/// Runs of vertices of the same buffers, drawn in order with one call.
class VertexRuns {
  public:
    /// Adds vertices `first` to `first + count - 1` of the buffers; to the last run if they follow
    /// it. Nothing when `count` is not positive.
    void append(int first, int count);
    /// Draws from the buffers that are bound, and forgets the runs.
    void draw(unsigned mode);
    bool empty() const { return firsts_.empty(); }

  private:
    std::vector<int> firsts_;
    std::vector<int> counts_;
};

/// Positions in memory and in a GL buffer, drawn in one call.
class VertexArray {
  public:
    VertexArray() = default;
    VertexArray(const VertexArray&) = delete;
    VertexArray& operator=(const VertexArray&) = delete;

    // Operations, in slot order.

    virtual ~VertexArray() = default;
    /// Fills the GL buffers from the arrays that have elements, for drawing as `mode`. All arrays
    /// but the positions are empty afterwards. Leaves no buffer bound.
    virtual void upload(unsigned mode, unsigned usage = GL_STATIC_DRAW);
    /// Sets GL's client arrays to the buffers. `flags`: kDraw...
    virtual void bind(unsigned flags) const;
    /// Turns the client arrays of this class off.
    virtual void unbind() const;
    /// Binds and draws as the mode of upload().
    virtual void draw(unsigned flags) const;
    /// Binds and draws as another primitive.
    virtual void drawAs(unsigned flags, unsigned mode) const;

    /// True when any part of what is uploaded may show in the volume.
    bool isWithin(const ViewVolume& volume) const;
    /// Adds, in the order of a whole draw, what may show in the volume: parts of a few hundred
    /// vertices whose bounds meet it. A null volume has room for all.
    void appendWithin(const ViewVolume* volume, VertexRuns& runs) const;
    /// Binds and draws that as `mode`.
    void drawWithin(const ViewVolume* volume, unsigned flags, unsigned mode) const;

    Vec3Array positions; ///< kept in memory after upload()
    SharedBuffer positionBuffer;
    int firstVertex = 0; ///< where the uploaded ones start in the buffers
    int vertexCount = 0; ///< uploaded
    unsigned primitiveMode = GL_TRIANGLES;
    int material = -1;  ///< of mesh batches
    uint32_t flags = 0; ///< kBatch...

  protected:
    /// Ends an upload: the positions start at vertex `first` of the buffers and are drawn as
    /// `mode`. Leaves no buffer bound.
    void placeUploaded(unsigned mode, int first);

  private:
    /// Bounds of the positions, and of each part of them.
    struct Bounds {
        Box all;
        std::vector<Box> parts;
    };
    const Bounds& bounds() const;

    mutable std::unique_ptr<const Bounds> bounds_; ///< made when first asked for
};

/// Positions with a colour each.
class ColorVertexArray : public VertexArray {
  public:
    void upload(unsigned mode, unsigned usage = GL_STATIC_DRAW) override;
    void bind(unsigned flags) const override;
    void unbind() const override;

    Vec4Array colors; ///< red, green, blue, alpha; empty after upload()
    SharedBuffer colorBuffer;
};

/// Binds no buffer and turns every client array off.
void unbindAllArrays();

} // namespace ogl
