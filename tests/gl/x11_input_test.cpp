// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Keys, mouse and the close button, as a person's hands make them on the X server.
#include "gl/window_fixture.h"
#include "gl/x11_client.h"

#include <gtest/gtest.h>

#include <X11/keysym.h>

#include <array>

using namespace ogl::test;

namespace {

using KeyStates = std::array<BYTE, 256>;

class Devices {
  public:
    Devices() {
        EXPECT_EQ(DirectInput8Create(GetModuleHandleA(nullptr), DIRECTINPUT_VERSION,
                                     IID_IDirectInput8A, reinterpret_cast<void**>(&input_),
                                     nullptr),
                  DI_OK);
        EXPECT_EQ(input_->CreateDevice(GUID_SysKeyboard, &keyboard, nullptr), DI_OK);
        EXPECT_EQ(input_->CreateDevice(GUID_SysMouse, &mouse, nullptr), DI_OK);
    }
    ~Devices() {
        mouse->Release();
        keyboard->Release();
        input_->Release();
    }
    Devices(const Devices&) = delete;
    Devices& operator=(const Devices&) = delete;

    void acquire() const {
        EXPECT_EQ(keyboard->SetDataFormat(&c_dfDIKeyboard), DI_OK);
        EXPECT_EQ(mouse->SetDataFormat(&c_dfDIMouse), DI_OK);
        EXPECT_EQ(keyboard->Acquire(), DI_OK);
        EXPECT_EQ(mouse->Acquire(), DI_OK);
    }
    KeyStates keys() const {
        KeyStates states{};
        EXPECT_EQ(keyboard->GetDeviceState(256, states.data()), DI_OK);
        return states;
    }
    DIMOUSESTATE mouseState() const {
        DIMOUSESTATE state{};
        EXPECT_EQ(mouse->GetDeviceState(sizeof state, &state), DI_OK);
        return state;
    }

    IDirectInputDevice8A* keyboard = nullptr;
    IDirectInputDevice8A* mouse = nullptr;

  private:
    IDirectInput8A* input_ = nullptr;
};

} // namespace

TEST(X11Input, KeyboardStateUsesScanCodes) {
    X11Client person;
    const Devices devices;
    devices.acquire();
    const struct {
        const char* name;
        unsigned long symbol;
        int code;
    } rows[] = {
        {"A", XK_a, DIK_A},
        {"1", XK_1, DIK_1},
        {"escape", XK_Escape, 0x01},
        {"left shift", XK_Shift_L, DIK_LSHIFT},
        {"F12", XK_F12, DIK_F12},
        {"up, extended", XK_Up, 0xc8},
        {"delete", XK_Delete, 0xd3},
        {"right control", XK_Control_R, 0x9d},
        {"space", XK_space, DIK_SPACE},
    };
    for (const auto& row : rows) {
        person.key(row.symbol, true);
        const KeyStates pressed = devices.keys();
        person.key(row.symbol, false);
        const KeyStates released = devices.keys();
        for (size_t code = 0; code < 256; ++code) {
            EXPECT_EQ(pressed[code], code == static_cast<size_t>(row.code) ? 0x80 : 0)
                << row.name << ", code " << code;
            EXPECT_EQ(released[code], 0) << row.name << ", code " << code;
        }
    }
}

TEST(X11Input, MouseStateIsRelativeAndKnowsItsButtons) {
    X11Client person;
    const Devices devices;
    TestWindow window(200, 200);
    person.moveMouse(window.handle(), 50, 50);
    devices.acquire();
    EXPECT_EQ(devices.mouseState().lX, 0);
    person.moveMouseBy(13, -7);
    DIMOUSESTATE state = devices.mouseState();
    EXPECT_EQ(state.lX, 13);
    EXPECT_EQ(state.lY, -7);
    EXPECT_EQ(state.lZ, 0);
    EXPECT_EQ(devices.mouseState().lX, 0); // read once
    for (const auto& [button, index] : {std::pair{1u, 0}, {3u, 1}, {2u, 2}}) {
        person.button(button, true);
        state = devices.mouseState();
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(state.rgbButtons[i], i == index ? 0x80 : 0) << "X button " << button;
        person.button(button, false);
    }
    EXPECT_EQ(devices.mouseState().rgbButtons[0], 0);
}

// With the drawing child on top: events reach the window all the same.
TEST(X11Input, MessagesOfKeysAndMouseArriveThroughTheDrawing) {
    X11Client person;
    TestWindow window(200, 150, true);
    TestContext context(window.handle());
    person.moveMouse(window.handle(), 3, 3);
    person.focus(window.handle());
    const auto arrives = [&](UINT message) {
        return TestWindow::pumpUntil([&] { return window.seen(message) != nullptr; });
    };
    EXPECT_TRUE(TestWindow::pumpUntil([&] { return GetActiveWindow() == window.handle(); }));

    person.key(XK_a, true);
    person.key(XK_a, false);
    ASSERT_TRUE(arrives(WM_KEYUP));
    ASSERT_TRUE(arrives(WM_KEYDOWN));
    EXPECT_EQ(window.seen(WM_KEYDOWN)->wParam, static_cast<WPARAM>('A'));
    ASSERT_TRUE(arrives(WM_CHAR));
    EXPECT_EQ(window.seen(WM_CHAR)->wParam, static_cast<WPARAM>('a'));
    person.key(XK_Left, true);
    person.key(XK_Left, false);
    ASSERT_TRUE(TestWindow::pumpUntil(
        [&] { return window.seen(WM_KEYUP)->wParam == static_cast<WPARAM>(VK_LEFT); }));

    person.moveMouse(window.handle(), 120, 77);
    ASSERT_TRUE(TestWindow::pumpUntil([&] {
        const SeenMessage* move = window.seen(WM_MOUSEMOVE);
        return move && GET_X_LPARAM(move->lParam) == 120 && GET_Y_LPARAM(move->lParam) == 77;
    }));
    person.button(3, true);
    ASSERT_TRUE(arrives(WM_RBUTTONDOWN));
    EXPECT_EQ(window.seen(WM_RBUTTONDOWN)->wParam, MK_RBUTTON);
    person.button(3, false);
    ASSERT_TRUE(arrives(WM_RBUTTONUP));
    EXPECT_EQ(window.seen(WM_RBUTTONUP)->wParam, 0u);
    person.button(5, true);
    person.button(5, false);
    ASSERT_TRUE(arrives(WM_MOUSEWHEEL));
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(window.seen(WM_MOUSEWHEEL)->wParam), -WHEEL_DELTA);
}

// A drag that leaves the window to the left and top: coordinates turn negative.
TEST(X11Input, CapturedMouseReportsNegativeCoordinates) {
    X11Client person;
    TestWindow window(100, 100, true);
    person.moveMouse(window.handle(), 20, 20);
    TestWindow::pumpUntil([&] { return window.seen(WM_MOUSEMOVE) != nullptr; });
    SetCapture(window.handle());
    person.moveMouse(window.handle(), -25, -11);
    EXPECT_TRUE(TestWindow::pumpUntil([&] {
        const SeenMessage* move = window.seen(WM_MOUSEMOVE);
        return move && GET_X_LPARAM(move->lParam) == -25 && GET_Y_LPARAM(move->lParam) == -11;
    }));
    EXPECT_TRUE(ReleaseCapture());
    window.messages.clear();
    person.moveMouse(window.handle(), -5, -5);
    TestWindow::pumpUntil([] { return false; });
    EXPECT_EQ(window.seen(WM_MOUSEMOVE), nullptr);
}

TEST(X11Input, CloseButtonClosesTheWindowOnly) {
    X11Client person;
    TestWindow window(100, 100, true);
    TestWindow other(100, 100, true);
    person.pressCloseButton(window.handle());
    EXPECT_TRUE(TestWindow::pumpUntil([&] { return window.destroyed; }));
    EXPECT_NE(window.seen(WM_CLOSE), nullptr);
    EXPECT_FALSE(other.destroyed);
    EXPECT_TRUE(IsWindow(other.handle()));
}
