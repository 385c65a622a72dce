// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/input_devices.h"

#include "platform/input_device_steps.h"

namespace ogl {

static_assert(sizeof(DIMOUSESTATE) == kMouseStateBytes);

namespace {

void releaseDevice(IDirectInputDevice8A*& device) {
    if (device == nullptr)
        return;
    device->Unacquire();
    device->Release();
    device = nullptr;
}

} // namespace

bool InputDevices::create(HWND window) {
    release();
    void* created = nullptr;
    if (FAILED(DirectInput8Create(GetModuleHandleA(nullptr), DIRECTINPUT_VERSION,
                                  IID_IDirectInput8A, &created, nullptr)) ||
        created == nullptr)
        return false;
    directInput = static_cast<IDirectInput8A*>(created);
    const bool keyboardOpen =
        openInputDevice(*directInput, GUID_SysKeyboard, c_dfDIKeyboard, window, keyboard);
    const bool mouseOpen = openInputDevice(*directInput, GUID_SysMouse, c_dfDIMouse, window, mouse);
    return keyboardOpen && mouseOpen;
}

void InputDevices::release() {
    releaseDevice(mouse);
    releaseDevice(keyboard);
    if (directInput != nullptr)
        directInput->Release();
    directInput = nullptr;
}

int InputDevices::readState(void* state) {
    return state != nullptr ? readInputState(mouse, keyboard, state) : 0;
}

} // namespace ogl
