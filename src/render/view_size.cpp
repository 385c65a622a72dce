// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/view_size.h"

#include "gpu/driver_quirks.h"
#include "platform/win32.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace ogl {

namespace {

constexpr int64_t kGiB = int64_t{1} << 30;
constexpr int64_t kLeastBytes = kGiB;
constexpr int64_t kUsualBytes = 4 * kGiB; ///< where the driver says nothing

/// Two colour buffers of a window; per sample colour, depth and stencil.
constexpr int64_t kWindowBytes = 8;
constexpr int64_t kWindowSampleBytes = 8;
/// Light, edges and noise of a photo; per sample three colours of half floats, depth and stencil.
constexpr int64_t kTargetBytes = 32;
constexpr int64_t kTargetSampleBytes = 28;

/// Drivers draw in tiles of their own, whose sides divide this.
constexpr int kSideStep = 64;

int64_t memoryForFrames() {
    // Software draws in the process's memory, of which a host of 32 bits has little.
    if (drawsInSoftware())
        return sizeof(void*) == 4 ? kLeastBytes : kUsualBytes;
    if (!GLEW_NVX_gpu_memory_info)
        return kUsualBytes;
    GLint kibibytes = 0;
    glGetIntegerv(GL_GPU_MEMORY_INFO_TOTAL_AVAILABLE_MEMORY_NVX, &kibibytes);
    return std::max(int64_t{kibibytes} * 1024 / 2, kLeastBytes);
}

} // namespace

FrameLimits frameLimits() {
    GLint viewport[2] = {1, 1};
    GLint side = 1;
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    int smallest = std::min(viewport[0], viewport[1]);
    constexpr unsigned kSides[] = {GL_MAX_TEXTURE_SIZE, GL_MAX_RECTANGLE_TEXTURE_SIZE,
                                   GL_MAX_RENDERBUFFER_SIZE};
    for (const unsigned limit : kSides) {
        glGetIntegerv(limit, &side);
        smallest = std::min(smallest, side);
    }
    return {smallest, memoryForFrames()};
}

int givenSamples(int asked) {
    if (asked < 1 || !GLEW_ARB_internalformat_query)
        return asked;
    constexpr unsigned kTarget = GL_TEXTURE_2D_MULTISAMPLE;
    GLint count = 0;
    glGetInternalformativ(kTarget, GL_RGBA16F, GL_NUM_SAMPLE_COUNTS, 1, &count);
    std::vector<GLint> counts(static_cast<size_t>(std::max(count, 0)));
    glGetInternalformativ(kTarget, GL_RGBA16F, GL_SAMPLES, count, counts.data());
    int given = asked;
    for (const GLint offered : counts) // the largest first
        if (offered >= asked)
            given = offered;
    return given;
}

int64_t frameBytesPerPixel(int windowSamples, int targetSamples) {
    const int64_t window = kWindowBytes + kWindowSampleBytes * std::max(windowSamples, 1);
    return targetSamples > 0 ? window + kTargetBytes + kTargetSampleBytes * targetSamples : window;
}

ViewSize viewSizeFor(ViewSize picture, int64_t bytesPerPixel, const FrameLimits& limits) {
    const int64_t pixels = limits.bytes / bytesPerPixel;
    if (picture.width <= limits.side && picture.height <= limits.side &&
        int64_t{picture.width} * picture.height <= pixels)
        return picture;
    const auto fitting = static_cast<int64_t>(std::sqrt(static_cast<double>(pixels)));
    const int64_t useful = int64_t{4} * std::min(picture.width, picture.height) + kSideStep - 1;
    const int64_t side = std::min({int64_t{limits.side}, fitting, useful});
    const auto whole = static_cast<int>(std::max<int64_t>(side, 1));
    return whole < kSideStep
               ? ViewSize{whole, whole}
               : ViewSize{whole / kSideStep * kSideStep, whole / kSideStep * kSideStep};
}

} // namespace ogl
