// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/input_devices.h"

#include "gl/window_fixture.h"

#include <gtest/gtest.h>

#include <cstring>

namespace ogl {
namespace {

constexpr unsigned char kUntouched = 0xee; // no state: keys and buttons are 0 or 0x80

/// Reads into a buffer that is longer than the state, and looks at what was written.
void expectWholeState(InputDevices& devices, const char* when) {
    unsigned char state[kInputStateBytes + 16];
    std::memset(state, kUntouched, sizeof state);
    EXPECT_EQ(devices.readState(state), 1) << when;
    for (int button = 12; button < kMouseStateBytes; ++button)
        EXPECT_EQ(state[button], 0) << when << ", button byte " << button;
    for (int key = kMouseStateBytes; key < kInputStateBytes; ++key)
        EXPECT_EQ(state[key] & 0x7f, 0) << when << ", key " << key - kMouseStateBytes;
    for (size_t after = kInputStateBytes; after < sizeof state; ++after)
        EXPECT_EQ(state[after], kUntouched) << when;
}

TEST(InputDevices, SystemsDevicesAreReadAndTakenAgainWhenLost) {
    test::TestWindow window(100, 100, true);
    InputDevices devices;
    ASSERT_TRUE(devices.create(window.handle()));
    expectWholeState(devices, "at first");
    ASSERT_EQ(devices.mouse->Unacquire(), DI_OK);
    ASSERT_EQ(devices.keyboard->Unacquire(), DI_OK);
    unsigned char bytes[kKeyboardStateBytes];
    ASSERT_TRUE(FAILED(devices.keyboard->GetDeviceState(sizeof bytes, bytes)));
    expectWholeState(devices, "lost");
    expectWholeState(devices, "taken again");
    // Several views may have devices at once, and may go in any order.
    InputDevices others;
    ASSERT_TRUE(others.create(window.handle()));
    devices.release();
    expectWholeState(others, "after another view's release");
    others.release();
    EXPECT_EQ(others.readState(bytes), 0);
}

} // namespace
} // namespace ogl
