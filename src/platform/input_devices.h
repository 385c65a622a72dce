// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// Bytes of the input state: a DIMOUSESTATE, then one byte per DirectInput key code.
inline constexpr int kMouseStateBytes = 16;
inline constexpr int kKeyboardStateBytes = 256;
inline constexpr int kInputStateBytes = kMouseStateBytes + kKeyboardStateBytes;

/// The system keyboard and mouse. Null members are devices that could not be made.
struct InputDevices {
    IDirectInput8A* directInput = nullptr;
    IDirectInputDevice8A* keyboard = nullptr;
    IDirectInputDevice8A* mouse = nullptr;

    InputDevices() = default;
    ~InputDevices() { release(); }
    InputDevices(const InputDevices&) = delete;
    InputDevices& operator=(const InputDevices&) = delete;

    /// Opens both devices for `window`, non-exclusively and in background mode. Returns false when
    /// one of them could not be made and acquired; the other one is usable then.
    bool create(HWND window);

    /// Closes what is open. Harmless when nothing is.
    void release();

    /// Fills kInputStateBytes bytes at `state`, mouse first. A lost device is acquired again once.
    /// Returns 1, or 0 when a device is missing or cannot be read; the mouse part is filled even
    /// when the keyboard then fails.
    int readState(void* state);
};

} // namespace ogl
