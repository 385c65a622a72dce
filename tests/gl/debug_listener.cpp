// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Makes every test of the program run with OpenGL's debug output and fail on any message.
#include "gl/debug_listener.h"

#include "gpu/gl_debug.h"
#include "support/system.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

int accepted = 0;

class DebugListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { accepted = debugMessageCount(); }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_EQ(debugMessageCount(), accepted) << "OpenGL's debug output is above";
    }
};

const bool installed = [] {
    setEnvironment("OGL_DEBUG", "1");
    testing::UnitTest::GetInstance()->listeners().Append(new DebugListener);
    return true;
}();

} // namespace

void acceptDebugMessages() {
    accepted = debugMessageCount();
}

} // namespace ogl::test
