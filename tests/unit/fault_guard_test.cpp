// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/fault_guard.h"

#include "support/system.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace ogl {
namespace {

int* volatile nowhere = nullptr;
volatile int zero = 0;

void writeNowhere() {
    *nowhere = 1;
}

void divideByZero() {
    zero = 7 / zero;
}

[[gnu::noinline]] void faultBelow(int frames) {
    volatile char room[200] = {};
    room[0] = static_cast<char>(frames);
    if (frames > 0)
        faultBelow(frames - 1);
    else
        writeNowhere();
    room[1] = room[0];
}

TEST(FaultGuard, RunsTheStep) {
    int calls = 0;
    EXPECT_TRUE(runGuarded([&] { ++calls; }));
    EXPECT_TRUE(runGuarded([&] {
        try {
            throw std::runtime_error("handled in the step");
        } catch (const std::exception&) {
            ++calls;
        }
    }));
    EXPECT_EQ(calls, 2);
}

TEST(FaultGuard, TellsAFaultAndGoesOn) {
    if (test::platformLayerIsOurs())
        GTEST_SKIP() << "no structured exceptions";
    int steps = 0;
    EXPECT_FALSE(runGuarded([&] {
        ++steps;
        writeNowhere();
        ++steps;
    }));
    EXPECT_EQ(steps, 1);
    EXPECT_FALSE(runGuarded([] { divideByZero(); }));
    // The inner guard is asked first, and the outer step goes on.
    bool inner = true;
    EXPECT_TRUE(runGuarded([&] {
        inner = runGuarded([] { faultBelow(3); });
        ++steps;
    }));
    EXPECT_FALSE(inner);
    EXPECT_EQ(steps, 2);
    // Nothing of the stack is lost, and variables that live in registers keep their values.
    int64_t sum = 0;
    double product = 1.0;
    for (int i = 0; i < 20000; ++i) {
        const int twice = 2 * i;
        EXPECT_FALSE(runGuarded([] { faultBelow(20); }));
        sum += twice;
        product *= 1.0001;
    }
    EXPECT_EQ(sum, int64_t{20000} * 19999);
    EXPECT_NEAR(product, 7.38832, 1e-4);
    EXPECT_THROW(throw std::runtime_error("as before"), std::runtime_error);
}

} // namespace
} // namespace ogl
