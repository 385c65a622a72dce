// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Keys and mouse of Windows, as the library's input export tells them. The system passes what a
// program injects to DirectInput in its own time.
#include "abi/library.h"
#include "support/host_window.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <utility>

namespace ogl::test {
namespace {

constexpr size_t kButtons = 12;
constexpr size_t kKeys = 16;

class InputTest : public testing::Test {
  protected:
    void SetUp() override {
        SetCursorPos(300, 300);
        view = library().create(window.handle(), kCreateInputDevices,
                                folder.hostFile("space.ini").c_str());
        ASSERT_NE(view, nullptr) << readFile(folder.file("ogl.log"));
        ASSERT_TRUE(readUntil([] { return true; }));
        movedX = movedY = 0; // that was the cursor's own way
    }
    void TearDown() override { library().release(view); }

    /// Reads the state, adding up the mouse's way, until it is as wanted or a second is over.
    bool readUntil(const std::function<bool()>& wanted) {
        for (int attempt = 0; attempt < 100; ++attempt, Sleep(10)) {
            for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
                DispatchMessageA(&message);
            if (library().inputState(view, state.data()) != 1)
                return false;
            int32_t axes[3];
            std::memcpy(axes, state.data(), sizeof axes);
            movedX += axes[0];
            movedY += axes[1];
            if (wanted())
                return true;
        }
        return false;
    }
    /// Sends the event until it shows: Wine loses one now and then, mouse buttons most of all.
    bool shows(const INPUT& event, const std::function<bool()>& wanted) {
        for (int attempt = 0; attempt < 8; ++attempt) {
            INPUT sent = event;
            if (SendInput(1, &sent, sizeof sent) == 1 && readUntil(wanted))
                return true;
        }
        return false;
    }
    /// Whether the byte reads pressed, and is the only one of keys and buttons that does.
    bool onlyPressed(size_t byte) const {
        for (size_t k = kButtons; k < state.size(); ++k)
            if (((state[k] & 0x80) != 0) != (k == byte))
                return false;
        return true;
    }
    bool nonePressed() const { return onlyPressed(0); }

    static INPUT key(WORD scanCode, DWORD flags) {
        INPUT event{};
        event.type = INPUT_KEYBOARD;
        event.ki.wScan = scanCode;
        event.ki.dwFlags = KEYEVENTF_SCANCODE | flags;
        return event;
    }
    static INPUT mouse(LONG x, LONG y, DWORD flags) {
        INPUT event{};
        event.type = INPUT_MOUSE;
        event.mi.dx = x;
        event.mi.dy = y;
        event.mi.dwFlags = flags;
        return event;
    }

    TempFolder folder;
    HostWindow window{200, 150};
    RenderContext* view = nullptr;
    std::array<uint8_t, 272> state{};
    int movedX = 0, movedY = 0;
};

TEST_F(InputTest, KeysShowUnderTheirScanCodes) {
    constexpr DWORD kExtended = KEYEVENTF_EXTENDEDKEY;
    const struct {
        const char* name;
        WORD scanCode;
        DWORD flags;
        size_t code;
    } rows[] = {{"A", 0x1e, 0, 0x1e}, {"F12", 0x58, 0, 0x58}, {"up", 0x48, kExtended, 0xc8}};
    for (const auto& row : rows) {
        EXPECT_TRUE(shows(key(row.scanCode, row.flags), [&] {
            return onlyPressed(kKeys + row.code);
        })) << row.name;
        EXPECT_TRUE(shows(key(row.scanCode, row.flags | KEYEVENTF_KEYUP), [&] {
            return nonePressed();
        })) << row.name;
    }
}

TEST_F(InputTest, MouseTellsItsWayAndItsButtons) {
    // Short enough not to be accelerated.
    EXPECT_TRUE(shows(mouse(5, -4, MOUSEEVENTF_MOVE),
                      [&] { return movedX > 0 && movedX % 5 == 0 && movedY == movedX / 5 * -4; }))
        << movedX << " " << movedY;
    const int x = movedX, y = movedY;
    const std::pair<DWORD, DWORD> rows[] = {{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                                            {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                                            {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}};
    for (size_t button = 0; button < 3; ++button) {
        EXPECT_TRUE(shows(mouse(0, 0, rows[button].first), [&] {
            return onlyPressed(kButtons + button);
        })) << button;
        EXPECT_TRUE(shows(mouse(0, 0, rows[button].second), [&] { return nonePressed(); }))
            << button;
    }
    EXPECT_EQ(movedX, x);
    EXPECT_EQ(movedY, y);
}

} // namespace
} // namespace ogl::test
