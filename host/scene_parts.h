// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What a scene is made of, as a host describes it to SceneBuilder. Lengths are metres, z is up,
// angles are degrees unless a name says otherwise, colours are 0 .. 255.
#pragma once

#include "host/vector3.h"
#include "ogl/host_records.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ogl::host {

using ObjectId = int;   ///< number of an object, from 0
using MaterialId = int; ///< number of a material, from 0
using TextureId = int;  ///< number of a shared texture slot, from 0
inline constexpr int kNone = -1;

struct Color {
    uint8_t red = 255;
    uint8_t green = 255;
    uint8_t blue = 255;
};

/// The brightness at which lit pictures show a texture in its own colours on a white material: they
/// double what it multiplies.
inline constexpr float kTexturedBrightness = 0.2f;

/// Surface of a face. At brightness 0.4 a colour is drawn as given (it is scaled by 2.5 times the
/// brightness).
struct Material {
    std::string name;
    Color color;
    float brightness = 0.4f;
    float opacity = 1.0f; ///< 1 opaque .. 0 invisible
    float reflection = 0.0f;
    float fresnel = 0.0f;
    float specular = 0.0f;
    float glossiness = 0.5f;
    float emission = 0.0f;     ///< > 0 = shines by itself
    float bumpStrength = 0.0f; ///< non-zero = normal map from the bump or colour image
    TextureId texture = kNone;
    bool onlyTextured = false;  ///< drawn only when it has a texture
    bool alphaTextured = false; ///< blended by its texture's alpha
};

/// Usage numbers of d3_CreateTextureFromFileInMemory, also the places in a texture slot.
enum class TextureUsage : int {
    Color = 0,
    Opacity = 1,
    Specular = 3,
    Bump = 4,
    AlternativeColor = 5,
    NormalMap = 6
};

/// File types of d3_CreateTextureFromFileInMemory.
enum class TextureFileType : int { Tga = 7, Dib = 8 };

/// One image file of a texture, as the bytes that d3_CreateTextureFromFileInMemory takes.
struct TextureFile {
    TextureUsage usage = TextureUsage::Color;
    TextureFileType type = TextureFileType::Dib;
    int width = 0;
    int height = 0;
    int bitsPerPixel = 24;
    std::vector<uint8_t> bytes;
};

/// A shared texture slot and the files of its images.
struct Texture {
    std::string name;
    std::vector<TextureFile> files;
};

/// Object kinds that the library tells apart.
enum class ObjectKind : uint8_t {
    Plain = 0,
    Window = 1, ///< its faces flagged kFaceNotRayTraced are portals
    Door = 2,   ///< as Window
    NoSilhouette = 6
};

struct ObjectOptions {
    ObjectKind kind = ObjectKind::Plain;
    bool visible = true;
    uint32_t faceFlags = 0;             ///< kFace... bits set on every face of the object
    std::optional<Vec3> referencePoint; ///< default: centre of the object's box
};

/// Texture coordinates of a planar face: u = dot(p - origin, uAxis), v likewise. (0, 0) is the
/// lower left corner of the image, (1, 1) its upper right corner.
struct TextureMap {
    Vec3 origin;
    Vec3 uAxis; ///< direction / width of the image in metres
    Vec3 vAxis; ///< direction / height of the image in metres
};

/// How the outline of a face is drawn.
enum class EdgeLook {
    Visible,
    Hidden ///< no edges in drawings
};

/// A planar face with holes. The outline runs counter-clockwise seen from the side that is
/// visible; holes may run either way.
struct Polygon {
    MaterialId material = kNone;
    std::vector<Vec3> outline;
    std::vector<std::vector<Vec3>> holes;
    std::optional<TextureMap> textureMap;
    uint32_t faceFlags = 0; ///< kFace... bits
    EdgeLook edges = EdgeLook::Visible;
};

/// Triangles without structure. A triangle's vertices run counter-clockwise seen from the side
/// that is visible. Spans are read during the call only.
struct TriangleSoup {
    std::span<const Vec3> positions;
    std::span<const Vec3> normals;         ///< one per position, outwards; or empty
    std::span<const Vec2> texCoords;       ///< one per position, (0, 0) lower left; or empty
    std::span<const uint32_t> indices;     ///< three per triangle; empty = positions in order
    std::span<const MaterialId> materials; ///< one per triangle, or one for all
};

struct SoupOptions {
    /// Neighbours whose normals differ by less are one curved surface (when there are no supplied
    /// normals that say otherwise).
    double creaseDegrees = 32.0;
    /// Fewer flat patches in a row than this are a bent surface with visible folds, not a curved
    /// one: the ridge of a shallow roof stays an edge.
    int minCurvedPatches = 5;
    /// Vertices closer than this are one (metres).
    double weldDistance = 1e-4;
    /// Adds every triangle a second time, facing the other way.
    bool bothSides = false;
    uint32_t faceFlags = 0; ///< kFace... bits
    EdgeLook edges = EdgeLook::Visible;
};

/// What became of a triangle soup.
struct SoupReport {
    size_t invalid = 0;    ///< triangles dropped: not finite, out of range, bad index or material
    size_t degenerate = 0; ///< triangles dropped: no area
    size_t duplicate = 0;  ///< triangles dropped: the same triangle again
    size_t inner = 0;      ///< triangles dropped: between solids of one material that touch
    size_t planarFaces = 0;
    size_t curvedFaces = 0;
    size_t triangles = 0; ///< triangles kept
};

/// A lamp.
struct Lamp {
    enum class Kind : uint8_t { Point = 1, Spot = 2 };
    Kind kind = Kind::Point;
    Vec3 position;
    Vec3 target; ///< the point that a spot light aims at
    double coneAngleDegrees = 45.0;
    float red = 1.0f; ///< colour times intensity
    float green = 1.0f;
    float blue = 1.0f;
    bool attenuated = true;
};

/// The sun by its direction. `azimuthDegrees` is the direction in which its light travels, counted
/// from +x towards +y; `elevationDegrees` its height above the horizon.
struct Sun {
    double azimuthDegrees = 50.0;
    double elevationDegrees = 40.0;
    Color color;
    int intensityPercent = 100;
    bool present = true;
};

/// Date, time and place from which the sun's direction is computed instead.
struct SunDate {
    uint32_t date = 0;        ///< seconds after 1970 began; its day in the local calendar
    int minutes = 12 * 60;    ///< minutes of the day, universal time
    double latitude = 0.0;    ///< degrees, north positive
    double longitude = 0.0;   ///< degrees, east positive
    double northAngle = 90.0; ///< direction of north in the scene, degrees; 90 = +y
};

/// A way through the scene.
struct Path {
    std::string name;
    std::vector<Vec3> points;
    std::vector<int> solidPoints{}; ///< numbers of the points whose marker is solid
};

struct Camera {
    Vec3 eye{10.0, -10.0, 6.0};
    Vec3 target;
    Vec3 up{0.0, 0.0, 1.0};
    double fieldOfViewDegrees = 45.0; ///< vertical
};

/// Part of the full view that is shown, in units of the full view's height; the centre is counted
/// from the middle of the view, to the right and upwards.
struct ViewWindow {
    double centerX = 0.0;
    double centerY = 0.0;
    double width = 1.0;
    double height = 1.0;
};

/// How drawings look.
struct DrawingStyle {
    int edgeOpacityPercent = 80;
    int lineWeight = 6; ///< line width = 0.0625 x this + the renderer's base width
    bool hiddenEdges = false;
    bool edgeMarks = false;        ///< crosses at the ends of edges
    bool singleColorEdges = false; ///< photo modes
    std::optional<Color> drawingBackground;
    Color background{226, 234, 243}; ///< of every mode but the drawing
};

/// Sketch look of the photo mode.
struct SketchStyle {
    bool enabled = false;
    int strengthPercent = 60;
    int noise = 10;
    Color color{40, 36, 32};
};

/// Light and tone of the photo mode.
struct PhotoStyle {
    float exposure = 1.0f;
    float gamma = 1.0f;
    float saturation = 1.0f;
    int ambientOcclusionPercent = 60;
    int ambientPercent = 50;
    float lightAmbient = 0.25f;
    int portalIntensity = 0;
    Color portalColor{235, 242, 255};
    bool interior = false;
    bool sunAndPortals = true;
    bool monochrome = false;
    bool useBackgroundColor = true;
};

/// A camera with a name and the objects that stay hidden for it.
struct NamedView {
    std::string name;
    Camera camera;
    std::vector<ObjectId> hiddenObjects;
};

struct Box {
    Vec3 low{1e30, 1e30, 1e30};
    Vec3 high{-1e30, -1e30, -1e30};
    bool empty() const { return low.x > high.x; }
    void add(Vec3 p);
};

} // namespace ogl::host
