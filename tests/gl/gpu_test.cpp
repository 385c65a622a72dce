// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/debug_listener.h"
#include "gl/gl_fixture.h"
#include "gl/window_fixture.h"
#include "gpu/gl_debug.h"
#include "gpu/texture.h"
#include "gpu/vertex_array.h"
#include "support/captured_output.h"

#include <cstring>

namespace ogl {
namespace {

class GpuTest : public test::GLTest {};

TEST_F(GpuTest, CubeTexturesShowTheImageOnAllFaces) {
    const uint8_t pixels[2 * 2 * 4] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const GLTexture cube = createTexture2D(TextureKind::Cube, GL_RGBA, 2, 2, pixels);
    bindTexture(2, TextureKind::Cube, cube.name(), GL_LINEAR, 1.0f);
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_CUBE_MAP));
    for (unsigned face = 0; face < 6; ++face) {
        uint8_t read[sizeof pixels] = {};
        glGetTexImage(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, GL_RGBA, GL_UNSIGNED_BYTE, read);
        EXPECT_EQ(std::memcmp(read, pixels, sizeof pixels), 0) << face;
    }
    glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
    resetTextureUnit(2);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_CUBE_MAP));
    resetTextureUnit(0);
}

TEST_F(GpuTest, BatchesThatWereNeverUploadedDrawNothing) {
    ColorVertexArray batch;
    const uint64_t before = glWork().drawCalls;
    batch.draw(kDrawPositions | kDrawColors);
    batch.drawAs(kDrawPositions, GL_POINTS);
    EXPECT_EQ(glWork().drawCalls, before);
}

TEST_F(GpuTest, DebugMessagesNameTheirPass) {
    const int before = debugMessageCount();
    test::CapturedOutput output(2);
    {
        const DebugGroup outer("outer pass");
        const DebugGroup inner("inner pass");
        glEnable(0x1234);
    }
    EXPECT_NE(output.stop().find("inner pass"), std::string::npos);
    EXPECT_EQ(debugMessageCount(), before + 1);
    test::acceptDebugMessages();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
}

TEST_F(GpuTest, ReportsObjectsThatAreLeft) {
    GLBuffer buffer;
    buffer.create();
    test::CapturedOutput output(2);
    reportLiveObjects();
    EXPECT_NE(output.stop().find("left over: 1 buffers"), std::string::npos);
}

TEST_F(GpuTest, NothingIsDeletedInAContextOfTheHosts) {
    GLBuffer buffer;
    buffer.create();
    const unsigned name = buffer.name();
    glBindBuffer(GL_ARRAY_BUFFER, name);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    {
        const test::TestWindow window(64, 48);
        const test::TestContext hosts(window.handle());
        buffer.reset(); // there the number may be another buffer's
    }
    makeCurrent();
    EXPECT_TRUE(glIsBuffer(name));
    deleteReleasedObjects();
    EXPECT_FALSE(glIsBuffer(name));
}

TEST_F(GpuTest, ForgetsNamesOfViewsThatAreGone) {
    GLBuffer stale;
    stale.create();
    scene_->addObject();
    context_.reset(); // the last view: its objects go with it
    EXPECT_EQ(liveObjects(GLKind::Buffer), 0);
    SetUp();
    GLBuffer fresh;
    fresh.create();
    glBindBuffer(GL_ARRAY_BUFFER, fresh.name());
    stale.reset(); // may have the same number
    EXPECT_EQ(liveObjects(GLKind::Buffer), 1);
    EXPECT_TRUE(glIsBuffer(fresh.name()));
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

} // namespace
} // namespace ogl
