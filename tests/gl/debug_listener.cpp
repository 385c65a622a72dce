// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Makes every test of the program run with OpenGL's debug output and fail on any message.
#include "gpu/gl_debug.h"

#include "support/system.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

class DebugListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { before_ = debugMessageCount(); }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_EQ(debugMessageCount(), before_) << "OpenGL's debug output is above";
    }
    int before_ = 0;
};

const bool installed = [] {
    setEnvironment("OGL_DEBUG", "1");
    testing::UnitTest::GetInstance()->listeners().Append(new DebugListener);
    return true;
}();

} // namespace
} // namespace ogl::test
