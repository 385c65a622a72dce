// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "math/vector3.h"
#include "ogl/host_records.h"
#include "platform/win32.h"
#include "render/camera.h"
#include "render/draw_choices.h"
#include "render/frame_timer.h"

#include <array>
#include <cstdint>

namespace ogl {

class ErrorLog;
class RenderContext;
class ViewVolume;
struct GLSurface;
struct Settings;

/// Which renderer a scene's render mode selects.
enum RendererKind : int {
    kShadowRenderer = 0,
    kEdgeRenderer = 1,
    kFixedRenderer = 2,
    kDeferredRenderer = 3,
    kRayTraceRenderer = 4,
};

/// Draws scenes. One renderer, shared by all views, lives at a time; a drawing call selects its
/// class by the scene's render mode and sets its per-call fields.
class Renderer {
  public:
    /// Reads what it needs from the view that it is made for, which must outlive it. Throws
    /// FrequencyError when there is no performance counter. Makes no GL call.
    explicit Renderer(RenderContext& creator);
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    // Operations, in slot order. A GL context of the renderer's view must be current.

    virtual ~Renderer();
    /// Clears colour and depth to the scene's background colour and resets texture units 0 to 3.
    /// Returns 1.
    virtual int clearBackground();
    /// Makes what lives as long as the renderer. Called once, after resetGLState(). Returns 0.
    virtual int createResources() = 0;
    virtual void releaseResources() = 0;
    /// Binds the material's colour image on unit 0 and its alpha map on unit 1. `textured`,
    /// `sharedSlot` and `alphaMap` receive 1 or 0: a colour image is bound, the images come from
    /// a shared slot, an alpha map is bound. Without `enable` or with textures off all are 0 and
    /// units 0 to 3 are off.
    virtual void bindMaterialTextures(const MATERIAL& material, int& textured, int& sharedSlot,
                                      int& alphaMap, unsigned enable);
    /// Draws a frame into the back buffer of `surface`, whose context is current. Returns 1.
    virtual int drawToWindow(const GLSurface& surface) = 0;
    /// Draws a frame into a DIB section of 24 or 32 bits, bottom row first. Returns 1.
    virtual int drawToBitmap(HBITMAP bitmap) = 0;
    /// Draws a frame into a file. Returns 1.
    virtual int drawToFile(const char* fileName) = 0;

    // What all renderers share.

    /// Puts OpenGL into the state that the renderers start from, reads the largest point size and
    /// turns waiting for the vertical retrace off.
    void resetGLState();
    /// Stores the view size in pixels; negative sizes count as 0.
    void setSize(int newWidth, int newHeight);
    /// Takes the view size from the client area of the surface's window.
    void setSizeFromWindow(const GLSurface& surface);
    /// Sets the view camera from the scene for the current view size.
    void setupCamera(const SCENE& newScene);
    /// Copies the frame from the read buffer into a DIB section of 24 or 32 bits, bottom row
    /// first, clipped to the bitmap's size. Another kind of bitmap stays untouched.
    void copyToBitmap(HBITMAP bitmap) const;

    SCENE* scene = nullptr;
    RenderContext* context;
    const unsigned* fontLists; ///< first bitmap font list
    ErrorLog* errorLog;
    int vendor; ///< kVendor...
    Settings* settings;
    DrawChoices choices;
    int width = 0; ///< of the view, pixels
    int height = 0;
    int64_t previousCounter = 0; ///< performance counter at the end of the frame before
    int64_t counter = 0;         ///< and of this one
    int64_t frequency;           ///< counts per second
    PerspectiveCamera camera;
    const ViewVolume* tileVolume = nullptr; ///< what the tile being drawn shows; null = everything
    std::array<std::array<uint8_t, 64>, 2> targetBlocks{}; ///< handed to render targets by address
    int kind = kEdgeRenderer;
    unsigned generation;  ///< of the contexts that its objects are in
    Box sceneBounds;      ///< of the vertices of the last batch build
    int objectCount = -1; ///< cache entries at the last batch build
    GLUquadric* quadric = nullptr;
    float clearColor[3] = {}; ///< background last cleared to
    GLTexture backgroundTexture;
    GLTexture markTexture; ///< end-point marks
    int viewSamples;       ///< per pixel of the window
    int targetSamples = 0; ///< per pixel of targets that frames are put together in; 0 = none
    float pointSizeMax = 1.0f;
    float maxAnisotropy = 1.0f; ///< of material textures
    float lineWidth = 0.5f;     ///< base width of edges, pixels
    std::array<FrameTimer, 6> timers;

  protected:
    /// Clears to the scene's background colour, grey when the drawing flags ask for grey.
    void clearToSceneBackground();
    /// Clears colour (alpha 1) and depth and resets texture units 3 to 0.
    void clearTo(float red, float green, float blue);
};

} // namespace ogl
