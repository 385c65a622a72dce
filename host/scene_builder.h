// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// SceneBuilder makes a SCENE record and owns everything that the record points to.
//
// What it writes, and why:
// - Visible sides. The renderers take clockwise triangles as front faces and use face.normal
//   negated, vertex normals as they stand. So the builder turns the counter-clockwise order of its
//   callers round: stored triangles run clockwise seen from outside, face.normal points into the
//   body (it is the right-handed normal of the stored order), vertex normals point outwards.
// - Coordinates. A loop point is an integer times unitScale times 0.001; triangle corners are
//   floats in metres. The builder rounds every corner to the loop grid and writes the triangle
//   corner with the renderer's own expression, so that an edge and the triangles next to it have
//   bitwise the same corners and never fight for depth.
#pragma once

#include "host/scene_parts.h"

#include <memory>
#include <string>
#include <string_view>

namespace ogl::host {

/// Loop grid of 10 micrometres: fine enough that rounding moves no visible corner, and 21 km wide.
/// The site box and reference points, which the library reads as integer / (unitScale x 1000),
/// then come in steps of 10 cm; unitScale 1 gives both a grid of 1 mm.
inline constexpr double kDefaultUnitScale = 0.01;

class SceneBuilder {
  public:
    explicit SceneBuilder(double unitScale = kDefaultUnitScale);
    ~SceneBuilder();
    SceneBuilder(SceneBuilder&&) noexcept;
    SceneBuilder& operator=(SceneBuilder&&) noexcept;

    // Parts. Numbers are given out in order, from 0. A material or object number that does not
    // exist throws std::out_of_range; adding after build() throws std::logic_error.
    MaterialId addMaterial(const Material& material);
    TextureId addTexture(Texture texture);
    ObjectId addObject(std::string name, const ObjectOptions& options = {});

    /// Adds a planar face. False (and nothing added) when the outline has no area, is not planar
    /// within 1 mm or lies out of the coordinate range.
    bool addPolygon(ObjectId object, const Polygon& polygon);
    /// Adds triangles: coplanar neighbours of one material become one planar face with its outline
    /// loops, curved surfaces become smooth faces. Neighbourhood is found within one call.
    SoupReport addTriangleSoup(ObjectId object, const TriangleSoup& soup,
                               const SoupOptions& options = {});

    void addLamp(const Lamp& lamp);
    int addPath(const Path& path);
    /// Axis-aligned site around x = y = 0 and above z = 0, in metres.
    void setSite(double width, double depth, double height);

    /// Writes the record. Called once; the record lives as long as the builder. Throws
    /// std::bad_alloc when there is no memory below 4 GiB, std::length_error when a list outgrows
    /// its record's integers.
    SCENE* build();
    /// The record, null before build().
    SCENE* scene() const;

    // What may change at any time, before and after build().
    void setCamera(const Camera& camera);
    void setViewWindow(const std::optional<ViewWindow>& window);
    void setRenderMode(int32_t mode);
    void setDrawingStyle(const DrawingStyle& style);
    void setSketchStyle(const SketchStyle& style);
    void setPhotoStyle(const PhotoStyle& style);
    void setSun(const Sun& sun);
    void setSunDate(const std::optional<SunDate>& date);
    void setViewFlags(uint32_t flags); ///< kView... bits; default: no overlays, no HUD
    void setPlanView(bool on);
    void setCurrentPath(int path);
    void setObjectVisible(ObjectId object, bool visible);
    void setObjectHighlight(ObjectId object, uint32_t bits); ///< kHighlight... bits
    void setHud(uint8_t flags);                              ///< kHud... bits; default: none
    void setOverlayColor(Color color);                       ///< of the paths
    /// A text beside a pixel of the view, cut at 79 bytes; an empty one shows nothing.
    void setTooltip(std::string_view text, int x, int y);
    /// The text that is shown with kViewNoSelection and kViewMessage, lines ending in line feeds;
    /// cut at 4095 bytes.
    void setMessage(std::string_view text);
    /// Writes where the paths are seen in a view of this size by the camera and the view window set
    /// last. Needed before each frame that shows paths (kHudPaths) to another camera.
    void placePaths(int viewWidth, int viewHeight);
    /// Makes the next frame rebuild the batches.
    void markChanged();

    // What the host kit keeps on the side.
    int objectCount() const;
    const std::string& objectName(ObjectId object) const;
    int materialCount() const;
    const std::string& materialName(MaterialId material) const;
    Box bounds() const;
    Box objectBounds(ObjectId object) const;
    size_t triangleCount() const;
    const std::vector<Texture>& textures() const;
    const std::vector<Path>& paths() const;

    // What the library parks in the record. The program makes the texture images and, before the
    // builder goes, hands every slot to d3_ReleasePointer.
    struct TextureLoad {
        const TextureFile* file; ///< bytes and sizes for d3_CreateTextureFromFileInMemory
        void** slot;             ///< 4-byte place in the record for the address that it returns
    };
    std::vector<TextureLoad> textureLoads();
    struct LibrarySlot {
        void** slot;     ///< 4-byte place in the record, as d3_ReleasePointer takes it
        int releaseKind; ///< kRelease...
    };
    /// The slots that hold something now.
    std::vector<LibrarySlot> librarySlots();
    /// Stores `image` in a slot of textureLoads().
    static void storeImage(void** slot, TextureImage* image);

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace ogl::host
