// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/path_tracer.h"

#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"
#include "gpu/texture.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr int kSampleAttachment = 0;
/// Rows that are drawn at once: short enough for drivers that stop what takes long.
constexpr int kBandRows = 64;
constexpr double kTurn = 6.283185307179586;

void bindRectangle(const ShaderProgram& program, const char* sampler, int unit, unsigned texture) {
    bindTexture(unit, TextureKind::Rectangle, texture, GL_NEAREST, 1.0f);
    program.setInt(sampler, unit);
}

void bindScene(const ShaderProgram& program, const SceneTextures& textures) {
    bindRectangle(program, "vertsTex", 0, textures.vertices.name());
    bindRectangle(program, "normalsTex", 1, textures.normals.name());
    bindRectangle(program, "uvsTex", 2, textures.uvs.name());
    bindRectangle(program, "materialsTex", 3, textures.materials.name());
    bindRectangle(program, "boundsTex", 4, textures.bounds.name());
    bindRectangle(program, "gridsTex", 5, textures.cells.name());
    program.setInt("vertTexRes", textures.sides.vertices);
    program.setInt("materialsTexRes", textures.sides.materials);
    program.setInt("boundsTexRes", textures.sides.bounds);
    program.setInt("gridsTexRes", textures.sides.cells);
}

void setVector(const ShaderProgram& program, const char* uniform, Vec3 v) {
    program.setVec3(uniform, v.x, v.y, v.z);
}

void leaveProgram() {
    ShaderProgram::useNone();
    for (int unit = 5; unit >= 0; --unit)
        resetTextureUnit(unit);
}

/// The target is drawn into while it lives, in its whole size.
class TargetScope {
  public:
    explicit TargetScope(RenderTarget& target) : target_(target) {
        glGetIntegerv(GL_VIEWPORT, viewport_.data());
        target_.bind();
        glViewport(0, 0, target.width(), target.height());
    }
    ~TargetScope() {
        target_.unbind();
        glViewport(viewport_[0], viewport_[1], viewport_[2], viewport_[3]);
    }
    TargetScope(const TargetScope&) = delete;
    TargetScope& operator=(const TargetScope&) = delete;

  private:
    RenderTarget& target_;
    std::array<int, 4> viewport_{};
};

} // namespace

float RaySampler::number() {
    constexpr float kStep = 1.0f / 16777216.0f;
    return static_cast<float>(random_() >> 8) * kStep;
}

RaySample RaySampler::next(int width, int height) {
    RaySample sample;
    sample.shiftX = (number() - 0.5f) / static_cast<float>(std::max(width, 1));
    sample.shiftY = (number() - 0.5f) / static_cast<float>(std::max(height, 1));
    for (size_t i = 0; i < sample.openDirections.size(); ++i) {
        const double angle = (static_cast<double>(i) + static_cast<double>(number())) *
                             (kTurn / static_cast<double>(sample.openDirections.size()));
        const double area = number();
        const double radius = std::sqrt(area);
        sample.openDirections[i] = {static_cast<float>(radius * std::cos(angle)),
                                    static_cast<float>(radius * std::sin(angle)),
                                    static_cast<float>(std::sqrt(1.0 - area))};
    }
    return sample;
}

PathTracer::PathTracer(RayTraceRenderer& renderer) : renderer_(renderer) {
    renderer_.iteration = 0;
    if (!isReady())
        return;
    const TargetScope scope(*renderer_.traceTarget());
    renderer_.traceTarget()->setAllDrawBuffers();
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT);
}

bool PathTracer::isReady() const {
    const RenderTarget* target = renderer_.traceTarget();
    return target != nullptr && target->exists() && renderer_.traceProgram() != nullptr &&
           renderer_.traceProgram()->isLinked() && renderer_.finalProgram() != nullptr &&
           renderer_.finalProgram()->isLinked() && renderer_.textures().bounds.exists();
}

void PathTracer::trace(const RaySample& sample, const std::function<void(double part)>& bandDone) {
    if (!isReady())
        return;
    const TargetScope scope(*renderer_.traceTarget());
    drawKernel(sample, bandDone);
    const int next = 3 - meanAttachment_;
    accumulate(1.0f / static_cast<float>(renderer_.iteration + 1),
               RenderTarget::attachmentEnum(next), GL_NONE);
    meanAttachment_ = next;
    ++renderer_.iteration;
}

void PathTracer::drawKernel(const RaySample& sample,
                            const std::function<void(double part)>& bandDone) {
    const DebugGroup group("ray-trace kernel");
    RenderTarget& target = *renderer_.traceTarget();
    target.setDrawBuffer(kSampleAttachment);
    renderer_.traceProgram()->use();
    setKernelInputs(sample);
    glEnable(GL_SCISSOR_TEST);
    for (int row = 0; row < target.height(); row += kBandRows) {
        glScissor(0, row, target.width(), kBandRows);
        drawScreenQuad();
        if (!bandDone)
            continue;
        glFinish();
        bandDone(std::min(1.0, static_cast<double>(row + kBandRows) / target.height()));
    }
    glDisable(GL_SCISSOR_TEST);
    leaveProgram();
}

void PathTracer::setKernelInputs(const RaySample& sample) const {
    static constexpr std::array kDirections{"aoSample[0]", "aoSample[1]", "aoSample[2]",
                                            "aoSample[3]"};
    const ShaderProgram& program = *renderer_.traceProgram();
    const RayCamera& camera = renderer_.rayCamera();
    const PackedScene& packed = renderer_.packed();
    bindScene(program, renderer_.textures());
    setVector(program, "camPos", camera.position);
    setVector(program, "camDir", camera.direction);
    setVector(program, "camRight", camera.right);
    setVector(program, "camUp", camera.up);
    program.setFloat("fScale", camera.scale);
    setVector(program, "sceneBBoxMin", renderer_.sceneBounds.min);
    setVector(program, "sceneBBoxMax", renderer_.sceneBounds.max);
    program.setInt("numBounds", static_cast<int>(packed.objectBounds.size()));
    program.setInt("numAllTris", packed.triangleCount());
    program.setInt("actIteration", renderer_.iteration);
    program.setVec2("aaPos", sample.shiftX, sample.shiftY);
    for (size_t i = 0; i < kDirections.size(); ++i)
        setVector(program, kDirections[i], sample.openDirections[i]);
}

void PathTracer::accumulate(float factor, unsigned meanBuffer, unsigned shownBuffer) const {
    const DebugGroup group("ray-trace accumulation");
    const RenderTarget& target = *renderer_.traceTarget();
    const ShaderProgram& program = *renderer_.finalProgram();
    const std::array<unsigned, 2> buffers{meanBuffer, shownBuffer};
    glDrawBuffers(static_cast<GLsizei>(buffers.size()), buffers.data());
    program.use();
    bindRectangle(program, "accumTex", 0, target.colorTexture(meanAttachment_));
    bindRectangle(program, "actTex", 1,
                  target.colorTexture(meanBuffer == GL_NONE ? meanAttachment_ : kSampleAttachment));
    program.setFloat("iterFac", factor);
    drawScreenQuad();
    leaveProgram();
}

std::vector<float> PathTracer::readSample() const {
    return readAttachment(kSampleAttachment);
}

std::vector<float> PathTracer::readMean() const {
    return readAttachment(meanAttachment_);
}

/// Goes into the place of the next mean.
std::vector<float> PathTracer::readShown() {
    const int shown = 3 - meanAttachment_;
    if (isReady()) {
        const TargetScope scope(*renderer_.traceTarget());
        accumulate(0.0f, GL_NONE, RenderTarget::attachmentEnum(shown));
    }
    return readAttachment(shown);
}

std::vector<float> PathTracer::readAttachment(int index) const {
    if (!isReady())
        return {};
    RenderTarget& target = *renderer_.traceTarget();
    std::vector<float> pixels(4 * static_cast<size_t>(target.width()) *
                              static_cast<size_t>(target.height()));
    const TargetScope scope(target);
    target.setReadBuffer(index);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, target.width(), target.height(), GL_RGBA, GL_FLOAT, pixels.data());
    return pixels;
}

} // namespace ogl
