// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
/// @file
/// The records that a host shares with the library, byte for byte. All are little-endian, packed
/// without padding and hold 32-bit addresses. Bytes that the library never touches are named gaps.
/// Fields are read and written by value: never take a pointer or a reference to one.
#pragma once

#include "ogl/ptr32.h"

#include <cstddef>
#include <cstdint>

namespace ogl {

struct TextureImage;
struct MeshBatchList;
struct BatchSet;

// renderMode
inline constexpr int32_t kRenderModeShadow = 7;   ///< shadowed forward renderer
inline constexpr int32_t kRenderModePhoto = 8;    ///< deferred renderer, or the ray-trace preview
inline constexpr int32_t kRenderModeDrawing = 10; ///< technical drawing
inline constexpr int32_t kRenderModeEdges = 11;   ///< edges alone

// drawFlags of the drawing functions
inline constexpr uint32_t kDrawFullQuality = 0x1;  ///< clear: white surfaces in modes 7 and 8
inline constexpr uint32_t kDrawOnce = 0x2;         ///< cleared in the renderer after a frame
inline constexpr uint32_t kDrawGrey = 0x1000;      ///< grey tones and grey background
inline constexpr uint32_t kDrawShadows = 0x200000; ///< shadows on
inline constexpr uint32_t kDrawInlineTextures = 0x2000000; ///< inline textures of materials too

// flags of d3_Create
inline constexpr uint32_t kCreateInputDevices = 0x2; ///< keyboard and mouse for di_GetState

// kinds of d3_ReleasePointer
inline constexpr int kReleaseTextureImage = 1; ///< of d3_CreateTextureFromFileInMemory
inline constexpr int kReleaseMeshBatches = 2;  ///< CACHEENTRY::meshBatches
inline constexpr int kReleaseBatchSet = 3;     ///< CACHEENTRY::otherBatches, edgeRecord

// photoOptions, drawingOptions
inline constexpr uint32_t kOptionBackgroundColor = 0x10;  ///< drawingOptions only
inline constexpr uint32_t kOptionSingleColorEdges = 0x20; ///< all edges in one colour
inline constexpr uint32_t kOptionRoundEdgeEnds = 0x100;   ///< marks at the ends of edges
inline constexpr uint32_t kOptionHiddenEdges = 0x200;     ///< hidden edges, dashed

// lightFlags
inline constexpr uint32_t kLightSunAndPortals = 0x10000; ///< sun and window light on
inline constexpr uint32_t kLightSunPresent = 0x20000;    ///< there is a sun
inline constexpr uint32_t kLightSunFromDate =
    0x40000; ///< sun by date, time and site, else by its angles
inline constexpr uint32_t kLightInterior = 0x80000;          ///< sun only through windows
inline constexpr uint32_t kLightSketchEdges = 0x100000;      ///< sketched edges on
inline constexpr uint32_t kLightMonochrome = 0x400000;       ///< without colours
inline constexpr uint32_t kLightBackgroundColor = 0x1000000; ///< backgroundColor, else white

// overlayFlags, symbol.flags
inline constexpr uint32_t kOverlaySymbols = 0x8000; ///< draws symbol1 and symbol2
inline constexpr uint32_t kOverlaySecondBox = 0x4;  ///< together with kViewSecondBox
inline constexpr uint8_t kSymbolMirrored = 0x1;     ///< drawn mirrored

// hudFlags
inline constexpr uint8_t kHudPaths = 0x1;       ///< paths in the view overlays
inline constexpr uint8_t kHudStatistics = 0x80; ///< frame rate, size, counts

// geometry.flags
inline constexpr uint32_t kGeometryPlanView = 0x8;        ///< plan from above
inline constexpr uint32_t kGeometryShadowsChanged = 0x40; ///< shadow maps are out of date
inline constexpr uint32_t kGeometryLightsChanged = 0x200; ///< lights were changed
inline constexpr uint32_t kGeometryTwoSided = 0x10000;    ///< changes which faces are two-sided

// object.flags, object.highlight, object.kind
inline constexpr uint32_t kObjectNotDrawn = 0x20002008;    ///< any of these bits
inline constexpr uint32_t kHighlightSelected = 0x10000000; ///< red; yellow with the other bit
inline constexpr uint32_t kHighlightMarked = 0x20000000;   ///< blue; yellow with the other bit
inline constexpr uint8_t kObjectKindNoSilhouette = 6;      ///< contributes no silhouettes

// face.flags
inline constexpr uint32_t kFaceNoHighlight = 0x4;         ///< not in its object's highlight outline
inline constexpr uint32_t kFaceUnlit = 0x10;              ///< on the first face of a cluster
inline constexpr uint32_t kFaceVertexNormals = 0x100000;  ///< normals follow the corners
inline constexpr uint32_t kFaceTwoSided = 0x20000000;     ///< on the first face of a cluster
inline constexpr uint32_t kFaceNotRayTraced = 0x40000000; ///< on the first face of a cluster
inline constexpr uint32_t kFacePortal = 0x40000000; ///< the same bit, on any face of an object
                                                    ///< of kind 1 or 2: a window opening

// material.flags
inline constexpr uint16_t kMaterialOnlyTextured = 0x1;    ///< drawn only with a texture
inline constexpr uint16_t kMaterialAlphaTextured = 0x800; ///< blended by its texture

// loopStyle.kind, .flags, .style, .penNumber
inline constexpr uint8_t kLoopOpen = 1;            ///< polyline
inline constexpr uint8_t kLoopClosed = 2;          ///< polygon
inline constexpr uint8_t kLoopHidden = 0x40;       ///< no edges
inline constexpr uint32_t kLoopStyleAlternate = 5; ///< in alternateColor
inline constexpr uint16_t kLoopNoPen = 65535;      ///< has no pen

// view.flags
inline constexpr uint32_t kViewNoSelection = 0x10; ///< no highlights, no gizmo
inline constexpr uint32_t kViewMessage = 0x20; ///< with kViewNoSelection: message and frame rate
inline constexpr uint32_t kViewNoOverlays = 0x100; ///< no overlays; paced
inline constexpr uint32_t kViewPaced = 0x300; ///< any of these bits: swaps at least 40 ms apart
inline constexpr uint32_t kViewNoHud = 0x800; ///< no heads-up display
inline constexpr uint32_t kViewCrossHair = 0x3000; ///< any of these bits, with kViewNoSelection
inline constexpr uint32_t kViewCursorB = 0x2000;   ///< cross-hair at cursorB, else at cursorA
inline constexpr uint32_t kViewSecondBox = 0x8000; ///< with kOverlaySecondBox
inline constexpr uint32_t kViewGizmo = 0x100000;   ///< axis gizmo

// view.mode
inline constexpr int32_t kViewModeBox = 1;  ///< shows the view box
inline constexpr int32_t kViewModeMove = 2; ///< move preview of the selected objects

// point3d.flags
inline constexpr uint8_t kPointSolid = 0x1; ///< solid marker

// objectCache entry, changeFlags
inline constexpr uint32_t kObjectChanged = 0x7; ///< any of these bits

#pragma pack(push, 1)
/// Three floats without alignment.
struct OGL_PACKED VEC3F {
    float x; ///< first component
    float y; ///< second component
    float z; ///< third component
};
static_assert(offsetof(VEC3F, x) == 0);
static_assert(offsetof(VEC3F, y) == 4);
static_assert(offsetof(VEC3F, z) == 8);
static_assert(sizeof(VEC3F) == 12);

/// Three doubles without alignment.
struct OGL_PACKED VEC3D {
    double x; ///< first component
    double y; ///< second component
    double z; ///< third component
};
static_assert(offsetof(VEC3D, x) == 0);
static_assert(offsetof(VEC3D, y) == 8);
static_assert(offsetof(VEC3D, z) == 16);
static_assert(sizeof(VEC3D) == 24);

/// Three integers without alignment.
struct OGL_PACKED VEC3I {
    int32_t x; ///< first component
    int32_t y; ///< second component
    int32_t z; ///< third component
};
static_assert(offsetof(VEC3I, x) == 0);
static_assert(offsetof(VEC3I, y) == 4);
static_assert(offsetof(VEC3I, z) == 8);
static_assert(sizeof(VEC3I) == 12);

/// A pixel position of the view; the origin is the top left corner.
struct OGL_PACKED PIXEL {
    int32_t x; ///< to the right
    int32_t y; ///< downwards
};
static_assert(offsetof(PIXEL, x) == 0);
static_assert(offsetof(PIXEL, y) == 4);
static_assert(sizeof(PIXEL) == 8);

/// A colour stored red first.
struct OGL_PACKED RGB8 {
    uint8_t red;   ///< 0 .. 255
    uint8_t green; ///< 0 .. 255
    uint8_t blue;  ///< 0 .. 255
};
static_assert(offsetof(RGB8, red) == 0);
static_assert(offsetof(RGB8, green) == 1);
static_assert(offsetof(RGB8, blue) == 2);
static_assert(sizeof(RGB8) == 3);

/// A colour stored blue first.
struct OGL_PACKED BGR8 {
    uint8_t blue;  ///< 0 .. 255
    uint8_t green; ///< 0 .. 255
    uint8_t red;   ///< 0 .. 255
};
static_assert(offsetof(BGR8, blue) == 0);
static_assert(offsetof(BGR8, green) == 1);
static_assert(offsetof(BGR8, red) == 2);
static_assert(sizeof(BGR8) == 3);

/// Growable array of elements of one size; the host owns the memory.
struct OGL_PACKED LIST {
    int32_t count;       ///< elements in use
    int16_t reserved04;  ///< set to 0 by Create
    int16_t growBy;      ///< growth step, elements
    int32_t reserved08;  ///< set to 0 by Create
    int16_t elementSize; ///< bytes per element
    int16_t reserved0e;  ///< set to 0 by Create
    Ptr32<void> data;    ///< first element
};
static_assert(offsetof(LIST, count) == 0);
static_assert(offsetof(LIST, reserved04) == 4);
static_assert(offsetof(LIST, growBy) == 6);
static_assert(offsetof(LIST, reserved08) == 8);
static_assert(offsetof(LIST, elementSize) == 12);
static_assert(offsetof(LIST, reserved0e) == 14);
static_assert(offsetof(LIST, data) == 16);
static_assert(sizeof(LIST) == 20);

/// One cluster of a VLIST: a run of its items.
struct OGL_PACKED INDEX {
    int32_t first; ///< number of the first item
    int32_t count; ///< items in the cluster
};
static_assert(offsetof(INDEX, first) == 0);
static_assert(offsetof(INDEX, count) == 4);
static_assert(sizeof(INDEX) == 8);

/// List of clusters, each a run of consecutive items of one shared list.
struct OGL_PACKED VLIST {
    LIST index; ///< one INDEX per cluster
    LIST items; ///< items of all clusters
};
static_assert(offsetof(VLIST, index) == 0);
static_assert(offsetof(VLIST, items) == 20);
static_assert(sizeof(VLIST) == 40);

/// The images of one texture, by usage. An image is owned by the library and freed through
/// d3_ReleasePointer(kind 1).
struct OGL_PACKED TEXTURESLOT {
    Ptr32<TextureImage> color;            ///< usage 0
    Ptr32<TextureImage> opacity;          ///< usage 1, alpha mask
    Ptr32<TextureImage> unused2;          ///< usage 2, not read
    Ptr32<TextureImage> specular;         ///< usage 3
    Ptr32<TextureImage> bump;             ///< usage 4, bump image or generated normal map
    Ptr32<TextureImage> alternativeColor; ///< usage 5, used when color is absent
    Ptr32<TextureImage> normalMap;        ///< usage 6, explicit normal map
};
static_assert(offsetof(TEXTURESLOT, color) == 0);
static_assert(offsetof(TEXTURESLOT, opacity) == 4);
static_assert(offsetof(TEXTURESLOT, unused2) == 8);
static_assert(offsetof(TEXTURESLOT, specular) == 12);
static_assert(offsetof(TEXTURESLOT, bump) == 16);
static_assert(offsetof(TEXTURESLOT, alternativeColor) == 20);
static_assert(offsetof(TEXTURESLOT, normalMap) == 24);
static_assert(sizeof(TEXTURESLOT) == 28);

/// Element of geometry.textures.
struct OGL_PACKED TEXTURE {
    uint8_t gap_0000[24];
    TEXTURESLOT slot; ///< shared texture slot
};
static_assert(offsetof(TEXTURE, slot) == 24);
static_assert(sizeof(TEXTURE) == 52);

/// Element of geometry.materials.
struct OGL_PACKED MATERIAL {
    uint16_t flags; ///< kMaterial... bits
    BGR8 color;     ///< diffuse colour
    uint8_t gap_0005[9];
    float brightness; ///< colour scale; channels are multiplied by 2.5 x this
    uint8_t gap_0012[4];
    float emission; ///< > 0 = emissive
    float specular; ///< specular level
    uint8_t gap_001e[16];
    float reflection;   ///< half of it is added to each channel
    float opacity;      ///< 1 opaque .. 0 invisible
    float fresnel;      ///< Fresnel factor of reflections
    float glossiness;   ///< specular exponent 10^(1 + 3.2 g)
    float bumpStrength; ///< non-zero = normal map from the bump or colour image
    uint8_t gap_0042[190];
    int16_t textureIndex;      ///< element of geometry.textures; -1 = inlineTexture
    TEXTURESLOT inlineTexture; ///< used when textureIndex is -1
    uint32_t useCount;         ///< faces using the material; 0 = skipped
};
static_assert(offsetof(MATERIAL, flags) == 0);
static_assert(offsetof(MATERIAL, color) == 2);
static_assert(offsetof(MATERIAL, brightness) == 14);
static_assert(offsetof(MATERIAL, emission) == 22);
static_assert(offsetof(MATERIAL, specular) == 26);
static_assert(offsetof(MATERIAL, reflection) == 46);
static_assert(offsetof(MATERIAL, opacity) == 50);
static_assert(offsetof(MATERIAL, fresnel) == 54);
static_assert(offsetof(MATERIAL, glossiness) == 58);
static_assert(offsetof(MATERIAL, bumpStrength) == 62);
static_assert(offsetof(MATERIAL, textureIndex) == 256);
static_assert(offsetof(MATERIAL, inlineTexture) == 258);
static_assert(offsetof(MATERIAL, useCount) == 286);
static_assert(sizeof(MATERIAL) == 290);

/// Item of geometry.clusters: one planar or smoothly shaded face.
struct OGL_PACKED FACE {
    uint32_t flags; ///< kFace... bits
    VEC3D normal;   ///< face normal; the library uses it negated
    uint8_t gap_001c[28];
    int32_t texCoordIndex; ///< first entry in geometry.texCoords, one per vertex; -1 = none
    int16_t material;      ///< element of geometry.materials; -1 = none
    uint8_t gap_003e[2];
};
static_assert(offsetof(FACE, flags) == 0);
static_assert(offsetof(FACE, normal) == 4);
static_assert(offsetof(FACE, texCoordIndex) == 56);
static_assert(offsetof(FACE, material) == 60);
static_assert(sizeof(FACE) == 64);

/// Element of geometry.loops: one outline of a face.
struct OGL_PACKED LOOP {
    int32_t firstPoint; ///< number in geometry.loopPoints
    int32_t pointCount; ///< points of the loop
};
static_assert(offsetof(LOOP, firstPoint) == 0);
static_assert(offsetof(LOOP, pointCount) == 4);
static_assert(sizeof(LOOP) == 8);

/// Element of geometry.faceLoops: the outlines of one face.
struct OGL_PACKED FACELOOPS {
    int32_t firstLoop; ///< number in geometry.loops
    int32_t loopCount; ///< loops of the face
};
static_assert(offsetof(FACELOOPS, firstLoop) == 0);
static_assert(offsetof(FACELOOPS, loopCount) == 4);
static_assert(sizeof(FACELOOPS) == 8);

/// Element of geometry.loopPoints; float = integer x unitScale x 0.001.
struct OGL_PACKED LOOPPOINT {
    VEC3I position; ///< integer coordinates
    uint16_t tag;   ///< of the host
};
static_assert(offsetof(LOOPPOINT, position) == 0);
static_assert(offsetof(LOOPPOINT, tag) == 12);
static_assert(sizeof(LOOPPOINT) == 14);

/// Item of pathPoints: one point of a path, in the coordinates of LOOPPOINT.
struct OGL_PACKED POINT3D {
    VEC3I position; ///< integer coordinates
    uint8_t gap_000c[1];
    uint8_t flags; ///< kPointSolid
};
static_assert(offsetof(POINT3D, position) == 0);
static_assert(offsetof(POINT3D, flags) == 13);
static_assert(sizeof(POINT3D) == 14);

/// Element of view.polygon: a corner of the selection polygon and where its edge goes.
struct OGL_PACKED POLYGONPOINT {
    PIXEL position; ///< the corner
    PIXEL edgeEnd;  ///< the edge drawn from it ends here
};
static_assert(offsetof(POLYGONPOINT, position) == 0);
static_assert(offsetof(POLYGONPOINT, edgeEnd) == 8);
static_assert(sizeof(POLYGONPOINT) == 16);

/// Element of geometry.loopStyles, parallel to geometry.loops: how an outline is drawn.
struct OGL_PACKED LOOPSTYLE {
    uint8_t kind; ///< kLoopOpen or kLoopClosed
    uint8_t gap_0001[3];
    uint8_t flags; ///< kLoopHidden
    uint8_t gap_0005[3];
    uint32_t style; ///< kLoopStyleAlternate = use alternateColor
    uint8_t gap_000c[6];
    uint32_t pen; ///< non-zero = full opacity
    uint8_t gap_0016[2];
    uint16_t penNumber;  ///< below 65535 = full opacity
    BGR8 color;          ///< line colour
    BGR8 alternateColor; ///< colour of style 5
};
static_assert(offsetof(LOOPSTYLE, kind) == 0);
static_assert(offsetof(LOOPSTYLE, flags) == 4);
static_assert(offsetof(LOOPSTYLE, style) == 8);
static_assert(offsetof(LOOPSTYLE, pen) == 18);
static_assert(offsetof(LOOPSTYLE, penNumber) == 24);
static_assert(offsetof(LOOPSTYLE, color) == 26);
static_assert(offsetof(LOOPSTYLE, alternateColor) == 29);
static_assert(sizeof(LOOPSTYLE) == 32);

/// Element of geometry.texCoords.
struct OGL_PACKED TEXCOORD {
    float u; ///< to the right
    float v; ///< upwards in the image
};
static_assert(offsetof(TEXCOORD, u) == 0);
static_assert(offsetof(TEXCOORD, v) == 4);
static_assert(sizeof(TEXCOORD) == 8);

/// Element of geometry.objects.
struct OGL_PACKED OBJECT {
    uint8_t gap_0000[60];
    uint32_t flags;     ///< kObjectNotDrawn bits
    uint32_t highlight; ///< kHighlight... bits
    uint8_t gap_0044[82];
    VEC3I referencePoint; ///< integer units
    uint8_t gap_00a2[108];
    uint8_t kind; ///< 6 = contributes no silhouettes
};
static_assert(offsetof(OBJECT, flags) == 60);
static_assert(offsetof(OBJECT, highlight) == 64);
static_assert(offsetof(OBJECT, referencePoint) == 150);
static_assert(offsetof(OBJECT, kind) == 270);
static_assert(sizeof(OBJECT) == 271);

/// Element of geometry.lights; the first one is the sun.
struct OGL_PACKED LIGHT {
    VEC3F position;    ///< position
    VEC3F target;      ///< aim of a spot light; of the sun: direction in which its light travels
    float attenuation; ///< > 0 = attenuated with distance
    uint8_t gap_001c[4];
    float coneAngle; ///< spot light, degrees
    uint8_t gap_0024[8];
    VEC3F color; ///< red, green, blue
    uint8_t gap_0038[2];
    uint8_t kind; ///< 1 point light, 2 spot light
};
static_assert(offsetof(LIGHT, position) == 0);
static_assert(offsetof(LIGHT, target) == 12);
static_assert(offsetof(LIGHT, attenuation) == 24);
static_assert(offsetof(LIGHT, coneAngle) == 32);
static_assert(offsetof(LIGHT, color) == 44);
static_assert(offsetof(LIGHT, kind) == 58);
static_assert(sizeof(LIGHT) == 59);

/// Element of view.objectCache: what the library keeps for one object. The pointers are the
/// library's own, released through d3_ReleasePointer.
struct OGL_PACKED CACHEENTRY {
    uint32_t changeFlags;             ///< low three bits set by the host when the object changed
    Ptr32<MeshBatchList> meshBatches; ///< release kind 2
    Ptr32<BatchSet> otherBatches;     ///< release kind 3
    uint32_t reserved0c;              ///< cleared on release
    Ptr32<BatchSet> edgeRecord;       ///< release kind 3
    uint32_t edgeCount;               ///< edge primitives of the object
};
static_assert(offsetof(CACHEENTRY, changeFlags) == 0);
static_assert(offsetof(CACHEENTRY, meshBatches) == 4);
static_assert(offsetof(CACHEENTRY, otherBatches) == 8);
static_assert(offsetof(CACHEENTRY, reserved0c) == 12);
static_assert(offsetof(CACHEENTRY, edgeRecord) == 16);
static_assert(offsetof(CACHEENTRY, edgeCount) == 20);
static_assert(sizeof(CACHEENTRY) == 24);

/// The axis gizmo of a view.
struct OGL_PACKED GIZMO {
    VEC3F lengths;       ///< axis lengths
    VEC3F translation;   ///< origin
    double angle;        ///< radians
    uint32_t colors[3];  ///< axis colours, red in bits 0-7
    VEC3F pointPosition; ///< marked point
};
static_assert(offsetof(GIZMO, lengths) == 0);
static_assert(offsetof(GIZMO, translation) == 12);
static_assert(offsetof(GIZMO, angle) == 24);
static_assert(offsetof(GIZMO, colors) == 32);
static_assert(offsetof(GIZMO, pointPosition) == 44);
static_assert(sizeof(GIZMO) == 56);

/// View state of the host.
struct OGL_PACKED VIEW {
    uint32_t flags; ///< kView... bits
    int32_t mode;   ///< kViewMode...
    uint8_t gap_0008[4];
    RGB8 overlayColor; ///< path polylines
    uint8_t gap_000f[1];
    int32_t polygonCount; ///< selection-polygon points
    uint8_t gap_0014[12];
    Ptr32<POLYGONPOINT> polygon; ///< polygonCount elements
    uint8_t tooltipText[80];     ///< zero-terminated; drawn when not empty
    PIXEL tooltip;               ///< tooltip position
    PIXEL cursorA;               ///< cross-hair point A, screen pixels
    PIXEL cursorB;               ///< cross-hair point B, used with kViewCursorB
    VEC3I moveOffset;            ///< integer units
    uint8_t gap_0098[2];
    VEC3I boxPosition; ///< view box, integer units
    uint8_t gap_00a6[2];
    VEC3I boxSize; ///< view box, integer units
    uint8_t gap_00b4[2];
    float boxAngle;     ///< about z, radians
    PIXEL pivot;        ///< rotation pivot
    VLIST markerPixels; ///< cluster k = marker pixels of path k
    VLIST pathPixels;   ///< cluster k = pixel polyline of path k
    uint8_t gap_0112[580];
    Ptr32<uint8_t> messageText; ///< heads-up display message, zero-terminated
    uint8_t gap_035a[288];
    uint32_t previewMode; ///< non-zero = preview is drawn instead of the scene
    CACHEENTRY preview;   ///< the single record of preview mode
    LIST objectCache;     ///< one CACHEENTRY per object, in object order
    GIZMO gizmo;          ///< axis gizmo
};
static_assert(offsetof(VIEW, flags) == 0);
static_assert(offsetof(VIEW, mode) == 4);
static_assert(offsetof(VIEW, overlayColor) == 12);
static_assert(offsetof(VIEW, polygonCount) == 16);
static_assert(offsetof(VIEW, polygon) == 32);
static_assert(offsetof(VIEW, tooltipText) == 36);
static_assert(offsetof(VIEW, tooltip) == 116);
static_assert(offsetof(VIEW, cursorA) == 124);
static_assert(offsetof(VIEW, cursorB) == 132);
static_assert(offsetof(VIEW, moveOffset) == 140);
static_assert(offsetof(VIEW, boxPosition) == 154);
static_assert(offsetof(VIEW, boxSize) == 168);
static_assert(offsetof(VIEW, boxAngle) == 182);
static_assert(offsetof(VIEW, pivot) == 186);
static_assert(offsetof(VIEW, markerPixels) == 194);
static_assert(offsetof(VIEW, pathPixels) == 234);
static_assert(offsetof(VIEW, messageText) == 854);
static_assert(offsetof(VIEW, previewMode) == 1146);
static_assert(offsetof(VIEW, preview) == 1150);
static_assert(offsetof(VIEW, objectCache) == 1174);
static_assert(offsetof(VIEW, gizmo) == 1194);
static_assert(sizeof(VIEW) == 1250);

/// A symbol drawn over the scene.
struct OGL_PACKED SYMBOL {
    VEC3I position; ///< integer units
    uint8_t gap_000c[2];
    double angle; ///< radians
    uint8_t gap_0016[16];
    RGB8 color; ///< line colour
    uint8_t gap_0029[2];
    uint8_t flags; ///< kSymbolMirrored
    uint8_t gap_002c[4];
    int16_t sizePercent; ///< size in percent
};
static_assert(offsetof(SYMBOL, position) == 0);
static_assert(offsetof(SYMBOL, angle) == 14);
static_assert(offsetof(SYMBOL, color) == 38);
static_assert(offsetof(SYMBOL, flags) == 43);
static_assert(offsetof(SYMBOL, sizePercent) == 48);
static_assert(sizeof(SYMBOL) == 50);

/// The geometry block of a SCENE.
struct OGL_PACKED GEOMETRY {
    Ptr32<LIST> objects; ///< elements are OBJECT
    double unitScale;    ///< scale of integer coordinates
    uint32_t flags;      ///< kGeometry... bits; the renderers clear the change bits
    uint8_t gap_0010[1120];
    double fieldOfView; ///< vertical, radians
    uint8_t gap_0478[364];
    VEC3F eye;    ///< camera position
    VEC3F target; ///< point that the camera looks at
    VEC3F up;     ///< up direction of the camera
    uint8_t gap_0608[178];
    float lightAmbient; ///< ambient factor; shaders receive 4 x this
    uint8_t gap_06be[4];
    int32_t edgeOpacity;      ///< percent
    uint32_t backgroundColor; ///< red in bits 0-7
    VLIST clusters;           ///< cluster k = the faces (FACE) of object k
    uint8_t gap_06f2[40];
    LIST loops;      ///< elements are LOOP
    LIST loopPoints; ///< elements are LOOPPOINT
    uint8_t gap_0742[40];
    VLIST faceTriangles; ///< cluster k = triangle bytes of face k
    LIST textures;       ///< elements are TEXTURE
    LIST materials;      ///< elements are MATERIAL
    LIST texCoords;      ///< elements are TEXCOORD
    LIST lights;         ///< elements are LIGHT; the count is also the model stamp
    Ptr32<VIEW> view;    ///< view state
    uint8_t gap_07e6[24];
    LIST faceLoops;  ///< elements are FACELOOPS
    LIST loopStyles; ///< elements are LOOPSTYLE
};
static_assert(offsetof(GEOMETRY, objects) == 0);
static_assert(offsetof(GEOMETRY, unitScale) == 4);
static_assert(offsetof(GEOMETRY, flags) == 12);
static_assert(offsetof(GEOMETRY, fieldOfView) == 1136);
static_assert(offsetof(GEOMETRY, eye) == 1508);
static_assert(offsetof(GEOMETRY, target) == 1520);
static_assert(offsetof(GEOMETRY, up) == 1532);
static_assert(offsetof(GEOMETRY, lightAmbient) == 1722);
static_assert(offsetof(GEOMETRY, edgeOpacity) == 1730);
static_assert(offsetof(GEOMETRY, backgroundColor) == 1734);
static_assert(offsetof(GEOMETRY, clusters) == 1738);
static_assert(offsetof(GEOMETRY, loops) == 1818);
static_assert(offsetof(GEOMETRY, loopPoints) == 1838);
static_assert(offsetof(GEOMETRY, faceTriangles) == 1898);
static_assert(offsetof(GEOMETRY, textures) == 1938);
static_assert(offsetof(GEOMETRY, materials) == 1958);
static_assert(offsetof(GEOMETRY, texCoords) == 1978);
static_assert(offsetof(GEOMETRY, lights) == 1998);
static_assert(offsetof(GEOMETRY, view) == 2018);
static_assert(offsetof(GEOMETRY, faceLoops) == 2046);
static_assert(offsetof(GEOMETRY, loopStyles) == 2066);
static_assert(sizeof(GEOMETRY) == 2086);

/// The host's scene record.
struct OGL_PACKED SCENE {
    uint8_t gap_0000[28];
    uint32_t overlayFlags; ///< kOverlay... bits
    uint8_t gap_0020[405];
    int32_t siteWidth;  ///< along x, integer units
    int32_t siteDepth;  ///< along y, integer units
    int32_t siteHeight; ///< along z, integer units
    uint8_t gap_01c1[18];
    int32_t viewWindowCenterX; ///< zoom window centre, 1/32000 of the view height, to the right
    int32_t viewWindowCenterY; ///< same unit, upwards
    uint8_t gap_01db[16];
    int32_t viewWindowWidth;  ///< same unit; <= 0 = no zoom window
    int32_t viewWindowHeight; ///< same unit; <= 0 = no zoom window
    uint8_t gap_01f3[194];
    uint32_t photoOptions; ///< kOption... bits of render modes 7 and 8
    uint8_t gap_02b9[4957];
    int32_t currentPath; ///< number of the current path
    uint8_t gap_161a[1318];
    SYMBOL symbol1; ///< first symbol
    uint8_t gap_1b72[74];
    SYMBOL symbol2; ///< second symbol
    uint8_t gap_1bee[90];
    int32_t renderMode; ///< kRenderMode...
    uint8_t gap_1c4c[6];
    uint8_t hudFlags; ///< kHud... bits
    uint8_t gap_1c53[29];
    uint32_t lightFlags; ///< kLight... bits
    uint8_t gap_1c74[336];
    float exposure; ///< tone curve
    uint8_t gap_1dc8[4];
    float toneGamma; ///< tone curve
    uint8_t gap_1dd0[4];
    float saturation; ///< colour saturation factor
    uint8_t gap_1dd8[4];
    int16_t portalIntensity; ///< factor 8 x 2^(0.001 x value)
    uint8_t gap_1dde[4];
    RGB8 portalColor; ///< portal lights
    uint8_t gap_1de5[1];
    RGB8 sunColor; ///< sun
    uint8_t gap_1de9[1];
    int16_t sunIntensity;      ///< percent
    float siteLatitude;        ///< degrees
    float siteLongitude;       ///< degrees
    uint32_t sunDate;          ///< seconds after 1970 began; its local day
    int16_t sunMinutes;        ///< minutes of the day
    int16_t sunAzimuthAngle;   ///< degrees about +z
    int16_t sunElevationAngle; ///< degrees about -y; negative = downward
    uint8_t gap_1dfe[8];
    double northAngle;    ///< radians; pi/2 = +y
    int16_t aoStrength;   ///< percent
    int16_t ambientLevel; ///< percent
    uint8_t gap_1e12[4];
    uint32_t drawingOptions;         ///< kOption... bits of render mode 10
    uint32_t drawingBackgroundColor; ///< red in bits 0-7
    int32_t lineWeight;              ///< line width = 0.0625 x this + base width
    int16_t edgeStrength;            ///< sketch edges, percent
    uint8_t gap_1e24[2];
    int16_t noiseStrength; ///< sketch noise, factor 0.02 x value
    uint8_t gap_1e28[2];
    RGB8 edgeColor; ///< sketch edges
    uint8_t gap_1e2d[3995];
    LIST paths;       ///< one element per path; only the count is read
    VLIST pathPoints; ///< cluster k = points (POINT3D) of path k
    uint8_t gap_2e04[3595];
    GEOMETRY geometry; ///< the geometry block
};
static_assert(offsetof(SCENE, overlayFlags) == 28);
static_assert(offsetof(SCENE, siteWidth) == 437);
static_assert(offsetof(SCENE, siteDepth) == 441);
static_assert(offsetof(SCENE, siteHeight) == 445);
static_assert(offsetof(SCENE, viewWindowCenterX) == 467);
static_assert(offsetof(SCENE, viewWindowCenterY) == 471);
static_assert(offsetof(SCENE, viewWindowWidth) == 491);
static_assert(offsetof(SCENE, viewWindowHeight) == 495);
static_assert(offsetof(SCENE, photoOptions) == 693);
static_assert(offsetof(SCENE, currentPath) == 5654);
static_assert(offsetof(SCENE, symbol1) == 6976);
static_assert(offsetof(SCENE, symbol2) == 7100);
static_assert(offsetof(SCENE, renderMode) == 7240);
static_assert(offsetof(SCENE, hudFlags) == 7250);
static_assert(offsetof(SCENE, lightFlags) == 7280);
static_assert(offsetof(SCENE, exposure) == 7620);
static_assert(offsetof(SCENE, toneGamma) == 7628);
static_assert(offsetof(SCENE, saturation) == 7636);
static_assert(offsetof(SCENE, portalIntensity) == 7644);
static_assert(offsetof(SCENE, portalColor) == 7650);
static_assert(offsetof(SCENE, sunColor) == 7654);
static_assert(offsetof(SCENE, sunIntensity) == 7658);
static_assert(offsetof(SCENE, siteLatitude) == 7660);
static_assert(offsetof(SCENE, siteLongitude) == 7664);
static_assert(offsetof(SCENE, sunDate) == 7668);
static_assert(offsetof(SCENE, sunMinutes) == 7672);
static_assert(offsetof(SCENE, sunAzimuthAngle) == 7674);
static_assert(offsetof(SCENE, sunElevationAngle) == 7676);
static_assert(offsetof(SCENE, northAngle) == 7686);
static_assert(offsetof(SCENE, aoStrength) == 7694);
static_assert(offsetof(SCENE, ambientLevel) == 7696);
static_assert(offsetof(SCENE, drawingOptions) == 7702);
static_assert(offsetof(SCENE, drawingBackgroundColor) == 7706);
static_assert(offsetof(SCENE, lineWeight) == 7710);
static_assert(offsetof(SCENE, edgeStrength) == 7714);
static_assert(offsetof(SCENE, noiseStrength) == 7718);
static_assert(offsetof(SCENE, edgeColor) == 7722);
static_assert(offsetof(SCENE, paths) == 11720);
static_assert(offsetof(SCENE, pathPoints) == 11740);
static_assert(offsetof(SCENE, geometry) == 15375);
static_assert(sizeof(SCENE) == 17461);

#pragma pack(pop)

} // namespace ogl
