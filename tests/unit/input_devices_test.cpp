// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/input_device_steps.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace ogl {
namespace {

struct FakeFormat {};

/// Answers its calls with one result after the other, then with success, and notes them.
struct FakeDevice {
    std::vector<HRESULT> results;
    unsigned char fill = 0; ///< of the state, where reading succeeds
    std::string calls = {};
    DWORD cooperation = 0;

    HRESULT answer(char call) {
        const size_t k = calls.size();
        calls += call;
        return k < results.size() ? results[k] : DI_OK;
    }
    HRESULT SetDataFormat(const FakeFormat*) { return answer('f'); }
    HRESULT SetCooperativeLevel(HWND, DWORD level) {
        cooperation = level;
        return answer('c');
    }
    HRESULT Acquire() { return answer('a'); }
    HRESULT GetDeviceState(DWORD size, void* state) {
        const HRESULT result = answer('g');
        if (SUCCEEDED(result))
            std::memset(state, fill, size);
        return result;
    }
    ULONG Release() { return static_cast<ULONG>(answer('r')); }
};

struct FakeInterface {
    FakeDevice& device;
    HRESULT result;

    HRESULT CreateDevice(const GUID&, FakeDevice** created, void*) {
        *created = &device;
        return result;
    }
};

TEST(InputDevices, OpeningStopsAtTheFirstRefusal) {
    const struct {
        const char* name;
        HRESULT create;
        std::vector<HRESULT> results; ///< of format, cooperation, acquiring
        bool opened, kept;
        const char* calls;
    } rows[] = {
        {"all well", DI_OK, {}, true, true, "fca"},
        {"not made", E_FAIL, {}, false, false, ""},
        {"no data format", DI_OK, {E_FAIL}, false, false, "fr"},
        {"cooperation refused", DI_OK, {DI_OK, E_FAIL}, true, true, "fca"},
        {"not acquired", DI_OK, {DI_OK, DI_OK, E_FAIL}, false, true, "fca"},
        {"acquired before", DI_OK, {DI_OK, DI_OK, S_FALSE}, false, true, "fca"},
    };
    for (const auto& row : rows) {
        FakeDevice fake{row.results};
        FakeInterface directInput{fake, row.create};
        FakeDevice* device = nullptr;
        EXPECT_EQ(openInputDevice(directInput, GUID{}, FakeFormat{}, nullptr, device), row.opened)
            << row.name;
        EXPECT_EQ(device != nullptr, row.kept) << row.name;
        EXPECT_EQ(fake.calls, row.calls) << row.name;
        if (row.opened) {
            EXPECT_EQ(fake.cooperation, 10u); // shared, also without focus
        }
    }
}

TEST(InputDevices, ReadingTriesOnceMoreAndKeepsTheHostsBytesOtherwise) {
    using Results = std::vector<HRESULT>;
    const Results lostOnce = {E_FAIL, DI_OK, DI_OK};
    const Results lost = {E_FAIL, DI_OK, E_FAIL};
    const struct {
        const char* name;
        const Results* mouse;    ///< of reading, acquiring, reading; null = there is none
        const Results* keyboard; ///< the same
        int result;
        bool mouseFilled, keyboardFilled;
    } rows[] = {
        {"mouse lost once", &lostOnce, &lostOnce, 1, true, true},
        {"mouse lost", &lost, &lostOnce, 0, false, false},
        {"keyboard lost", &lostOnce, &lost, 0, true, false},
        {"no mouse", nullptr, &lostOnce, 0, false, false},
        {"no keyboard", &lostOnce, nullptr, 0, true, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FakeDevice mouse{row.mouse != nullptr ? *row.mouse : Results{}, 0x11};
        FakeDevice keyboard{row.keyboard != nullptr ? *row.keyboard : Results{}, 0x22};
        unsigned char state[kInputStateBytes + 1];
        std::memset(state, 0xee, sizeof state);
        EXPECT_EQ(readInputState(row.mouse != nullptr ? &mouse : nullptr,
                                 row.keyboard != nullptr ? &keyboard : nullptr, state),
                  row.result);
        for (const int i : {0, 15})
            EXPECT_EQ(state[i], row.mouseFilled ? 0x11 : 0xee) << i;
        for (const int i : {16, 271})
            EXPECT_EQ(state[i], row.keyboardFilled ? 0x22 : 0xee) << i;
        EXPECT_EQ(state[kInputStateBytes], 0xee);
    }
}

} // namespace
} // namespace ogl
