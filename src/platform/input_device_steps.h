// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The order of calls by which an input device is opened and read, for any type that has the calls
// of a DirectInput device.
#pragma once

#include "platform/input_devices.h"
#include "platform/win32.h"

#include <cstring>

namespace ogl {

/// Makes, sets up and acquires a device for `window`. `device` becomes null when it could not be
/// made or given its data format. A device that could not be acquired yet stays: reading tries
/// again. Returns true only for a device that is acquired.
template <class Interface, class Device, class DataFormat>
bool openInputDevice(Interface& directInput, const GUID& guid, const DataFormat& format,
                     HWND window, Device*& device) {
    device = nullptr;
    if (FAILED(directInput.CreateDevice(guid, &device, nullptr))) {
        device = nullptr;
        return false;
    }
    if (FAILED(device->SetDataFormat(&format))) {
        device->Release();
        device = nullptr;
        return false;
    }
    device->SetCooperativeLevel(window, DISCL_NONEXCLUSIVE | DISCL_BACKGROUND);
    return device->Acquire() == DI_OK;
}

/// Reads `bytes` bytes of state; a lost device is acquired again once.
template <class Device> bool readInputDevice(Device& device, int bytes, void* state) {
    const DWORD size = static_cast<DWORD>(bytes);
    if (SUCCEEDED(device.GetDeviceState(size, state)))
        return true;
    device.Acquire();
    return SUCCEEDED(device.GetDeviceState(size, state));
}

/// See InputDevices::readState.
template <class Device> int readInputState(Device* mouse, Device* keyboard, void* state) {
    if (mouse == nullptr || !readInputDevice(*mouse, kMouseStateBytes, state))
        return 0;
    // The host's keyboard bytes stay as they are when the reading fails half-way.
    unsigned char keys[kKeyboardStateBytes];
    if (keyboard == nullptr || !readInputDevice(*keyboard, kKeyboardStateBytes, keys))
        return 0;
    std::memcpy(static_cast<unsigned char*>(state) + kMouseStateBytes, keys, sizeof keys);
    return 1;
}

} // namespace ogl
