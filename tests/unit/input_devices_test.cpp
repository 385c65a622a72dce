// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/input_device_steps.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace ogl {
namespace {

/// Answers each call with the next result of a list, then with success.
struct Answers {
    std::vector<HRESULT> results;
    size_t next = 0;

    HRESULT give() { return next < results.size() ? results[next++] : DI_OK; }
};

struct FakeFormat {};

struct FakeDevice {
    std::string calls;
    HRESULT formatResult = DI_OK;
    HRESULT cooperationResult = DI_OK;
    Answers acquire;
    Answers read;
    unsigned char fill = 0;
    DWORD cooperation = 0;

    HRESULT SetDataFormat(const FakeFormat*) {
        calls += 'f';
        return formatResult;
    }
    HRESULT SetCooperativeLevel(HWND, DWORD level) {
        calls += 'c';
        cooperation = level;
        return cooperationResult;
    }
    HRESULT Acquire() {
        calls += 'a';
        return acquire.give();
    }
    HRESULT GetDeviceState(DWORD size, void* state) {
        calls += 'g';
        const HRESULT result = read.give();
        if (SUCCEEDED(result))
            std::memset(state, fill, size);
        return result;
    }
    ULONG Release() {
        calls += 'r';
        return 0;
    }
};

struct FakeInterface {
    FakeDevice& device;
    HRESULT result = DI_OK;

    HRESULT CreateDevice(const GUID&, FakeDevice** created, void*) {
        *created = &device;
        return result;
    }
};

struct Opening {
    const char* name;
    HRESULT create;
    HRESULT format;
    HRESULT cooperation;
    HRESULT acquire;
    bool opened;
    bool kept;
    const char* calls;
};

const Opening kOpenings[] = {
    {"all well", DI_OK, DI_OK, DI_OK, DI_OK, true, true, "fca"},
    {"not made", E_FAIL, DI_OK, DI_OK, DI_OK, false, false, ""},
    {"no data format", DI_OK, E_FAIL, DI_OK, DI_OK, false, false, "fr"},
    {"cooperation refused", DI_OK, DI_OK, E_FAIL, DI_OK, true, true, "fca"},
    {"not acquired", DI_OK, DI_OK, DI_OK, E_FAIL, false, true, "fca"},
    {"acquired before", DI_OK, DI_OK, DI_OK, S_FALSE, false, true, "fca"},
};

TEST(InputDevices, OpeningStopsAtTheFirstRefusal) {
    for (const Opening& row : kOpenings) {
        SCOPED_TRACE(row.name);
        FakeDevice fake;
        fake.formatResult = row.format;
        fake.cooperationResult = row.cooperation;
        fake.acquire.results = {row.acquire};
        FakeInterface directInput{fake, row.create};
        FakeDevice* device = nullptr;
        EXPECT_EQ(openInputDevice(directInput, GUID{}, FakeFormat{}, nullptr, device), row.opened);
        EXPECT_EQ(device != nullptr, row.kept);
        EXPECT_EQ(fake.calls, row.calls);
        if (row.opened) {
            EXPECT_EQ(fake.cooperation, 10u); // shared, also without focus
        }
    }
}

struct Reading {
    const char* name;
    std::vector<HRESULT> mouse;    ///< results of reading; no entry = there is no mouse
    std::vector<HRESULT> keyboard; ///< the same
    int result;
    bool mouseFilled;
    bool keyboardFilled;
    const char* mouseCalls;
    const char* keyboardCalls;
};

const Reading kReadings[] = {
    {"both", {DI_OK}, {DI_OK}, 1, true, true, "g", "g"},
    {"mouse lost once", {E_FAIL, DI_OK}, {DI_OK}, 1, true, true, "gag", "g"},
    {"keyboard lost once", {DI_OK}, {E_FAIL, DI_OK}, 1, true, true, "g", "gag"},
    {"mouse lost", {E_FAIL, E_FAIL}, {DI_OK}, 0, false, false, "gag", ""},
    {"keyboard lost", {DI_OK}, {E_FAIL, E_FAIL}, 0, true, false, "g", "gag"},
    {"no mouse", {}, {DI_OK}, 0, false, false, "", ""},
    {"no keyboard", {DI_OK}, {}, 0, true, false, "g", ""},
};

TEST(InputDevices, ReadingTriesOnceMoreAndKeepsTheHostsBytesOtherwise) {
    for (const Reading& row : kReadings) {
        SCOPED_TRACE(row.name);
        FakeDevice mouse;
        mouse.read.results = row.mouse;
        mouse.fill = 0x11;
        FakeDevice keyboard;
        keyboard.read.results = row.keyboard;
        keyboard.fill = 0x22;
        unsigned char state[kInputStateBytes + 1];
        std::memset(state, 0xee, sizeof state);
        EXPECT_EQ(readInputState(row.mouse.empty() ? nullptr : &mouse,
                                 row.keyboard.empty() ? nullptr : &keyboard, state),
                  row.result);
        for (const int i : {0, 15})
            EXPECT_EQ(state[i], row.mouseFilled ? 0x11 : 0xee) << i;
        for (const int i : {16, 271})
            EXPECT_EQ(state[i], row.keyboardFilled ? 0x22 : 0xee) << i;
        EXPECT_EQ(state[kInputStateBytes], 0xee);
        EXPECT_EQ(mouse.calls, row.mouseCalls);
        EXPECT_EQ(keyboard.calls, row.keyboardCalls);
    }
}

} // namespace
} // namespace ogl
