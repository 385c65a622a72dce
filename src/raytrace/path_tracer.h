// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "raytrace/ray_trace_renderer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

namespace ogl {

/// What changes from one sample of a traced picture to the next.
struct RaySample {
    float shiftX = 0.0f; ///< of the rays, in parts of the picture
    float shiftY = 0.0f;
    std::array<Vec3, 4> openDirections; ///< around (0, 0, 1), in which nearby things darken
};

/// Draws samples at random: rays anywhere in their pixel, directions by the cosine of their angle
/// to the normal, one in each quarter turn.
class RaySampler {
  public:
    explicit RaySampler(uint32_t seed) : random_(seed) {}
    RaySample next(int width, int height);

  private:
    float number(); ///< 0 to below 1; the same on every system

    std::mt19937 random_;
};

/// Traces the scene of a renderer into the renderer's own target: sample after sample, and their
/// mean. The renderer must have drawn a frame, and draw none while this lives; its context must be
/// current.
class PathTracer {
  public:
    explicit PathTracer(RayTraceRenderer& renderer);

    /// False when the programs did not build or there is no target.
    bool isReady() const;
    /// Traces one sample of every pixel into the mean. The picture is drawn in bands, after each of
    /// which `bandDone` hears what part of the sample is done.
    void trace(const RaySample& sample, const std::function<void(double part)>& bandDone = {});
    int sampleCount() const { return renderer_.iteration; }

    /// The last sample alone, four floats a pixel, bottom row first. Alpha is -1 beside the scene.
    std::vector<float> readSample() const;
    /// The mean of the samples.
    std::vector<float> readMean() const;
    /// The mean brightened for display, 0 .. 1.
    std::vector<float> readShown();

  private:
    void drawKernel(const RaySample& sample, const std::function<void(double part)>& bandDone);
    void setKernelInputs(const RaySample& sample) const;
    void accumulate(float factor, unsigned meanBuffer, unsigned shownBuffer) const;
    std::vector<float> readAttachment(int index) const;

    RayTraceRenderer& renderer_;
    int meanAttachment_ = 1; ///< and the other of 1 and 2 takes the next mean
};

} // namespace ogl
