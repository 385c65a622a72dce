// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/memory32.h"

#include "support/system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

namespace memory32 = ogl::memory32;
using memory32::Kind;

namespace {

struct Block {
    unsigned char* address;
    size_t bytes;
    unsigned char fill;
};

bool allEqual(const unsigned char* bytes, size_t count, unsigned char value) {
    return std::all_of(bytes, bytes + count, [&](unsigned char b) { return b == value; });
}

bool inLow4GiB(const void* address, size_t bytes) {
    return uint64_t{reinterpret_cast<uintptr_t>(address)} + bytes <= uint64_t{1} << 32;
}

unsigned char* take(size_t bytes, Kind kind = Kind::Host) {
    return static_cast<unsigned char*>(memory32::allocate(bytes, kind));
}

} // namespace

TEST(Memory32, BlocksAreLowAlignedZeroedAndKeepTheirContents) {
    std::mt19937 random(7);
    std::vector<Block> live;
    const size_t before = memory32::liveCount(Kind::Host);
    for (int step = 0; step < 10000; ++step) {
        if (live.size() > 200 || (!live.empty() && random() % 3 == 0)) {
            const size_t victim = random() % live.size();
            ASSERT_TRUE(allEqual(live[victim].address, live[victim].bytes, live[victim].fill));
            memory32::release(live[victim].address);
            live[victim] = live.back();
            live.pop_back();
        } else {
            // On both sides of every boundary inside the allocator, and anywhere between.
            const size_t power = size_t{1} << (random() % 21);
            const size_t bytes = random() % 2 == 0 ? power + random() % 3 - 1 : random() % power;
            unsigned char* address = take(bytes);
            ASSERT_NE(address, nullptr);
            ASSERT_EQ(reinterpret_cast<uintptr_t>(address) % 16, 0u) << bytes;
            ASSERT_TRUE(inLow4GiB(address, bytes)) << bytes;
            ASSERT_TRUE(allEqual(address, bytes, 0));
            const auto fill = static_cast<unsigned char>(random() % 255 + 1);
            std::memset(address, fill, bytes);
            live.push_back({address, bytes, fill});
        }
    }
    EXPECT_EQ(memory32::liveCount(Kind::Host), before + live.size());
    for (const Block& block : live)
        memory32::release(block.address);
    EXPECT_EQ(memory32::liveCount(Kind::Host), before);
}

TEST(Memory32, OnlyTheStartOfALiveBlockOfTheKindIsOwned) {
    int onStack = 0;
    for (const size_t bytes : {size_t{1}, size_t{48}, size_t{5000}, size_t{300000}}) {
        unsigned char* image = take(bytes, Kind::TextureImage);
        ASSERT_NE(image, nullptr);
        EXPECT_TRUE(memory32::owns(image, Kind::TextureImage)) << bytes;
        EXPECT_FALSE(memory32::owns(image, Kind::BatchSet)) << bytes;
        EXPECT_FALSE(memory32::owns(image + 1, Kind::TextureImage)) << bytes;
        EXPECT_FALSE(memory32::owns(image + 16, Kind::TextureImage)) << bytes;
        EXPECT_FALSE(memory32::owns(image - 16, Kind::TextureImage)) << bytes;
        memory32::release(image + 16); // no block starts there: nothing happens
        EXPECT_TRUE(memory32::owns(image, Kind::TextureImage)) << bytes;
        memory32::release(image);
        EXPECT_FALSE(memory32::owns(image, Kind::TextureImage)) << bytes;
        memory32::release(image); // a second time
    }
    EXPECT_FALSE(memory32::owns(&onStack, Kind::Host));
    EXPECT_FALSE(memory32::owns(nullptr, Kind::Host));
    EXPECT_EQ(memory32::liveCount(Kind::TextureImage), 0u);
    memory32::release(nullptr);
    memory32::release(&onStack);
}

// Large scenes: what a 32-bit process can hold (or the sanitizer leaves free) must be reachable in
// blocks of a list's size; asking for more fails, and everything can be had again afterwards.
TEST(Memory32, DISABLED_FillsTheAddressSpace) {
    constexpr size_t kBlock = 3u << 20;
    constexpr size_t kEnough = sizeof(void*) == 4 ? 1200u << 20 : 1500u << 20;
    const auto fill = [] {
        std::vector<unsigned char*> blocks;
        while (unsigned char* block = take(kBlock)) {
            block[0] = block[kBlock - 1] = 1;
            blocks.push_back(block);
            if (blocks.size() * kBlock > (size_t{4095} << 20))
                break;
        }
        return blocks;
    };
    for (int round = 0; round < 2; ++round) {
        const std::vector<unsigned char*> blocks = fill();
        EXPECT_GE(blocks.size() * kBlock, kEnough) << round;
        EXPECT_LT(blocks.size() * kBlock, size_t{4095} << 20);
        EXPECT_EQ(take(size_t{1} << 30), nullptr);
        for (unsigned char* block : blocks)
            memory32::release(block);
    }
    EXPECT_EQ(take(SIZE_MAX), nullptr);
    EXPECT_EQ(take(SIZE_MAX - 8), nullptr);
}

// In a process of its own: what fills a 32-bit address space leaves it in pieces.
TEST(Memory32, HoldsALargeSceneAndFailsCleanlyBeyondTheAddressSpace) {
    const ogl::test::ProcessResult child =
        ogl::test::runProgram(ogl::test::programPath(), {"--gtest_also_run_disabled_tests",
                                                         "--gtest_filter=Memory32.DISABLED_*"});
    EXPECT_EQ(child.exitCode, 0) << child.output;
    EXPECT_NE(child.output.find("1 test from 1 test suite ran"), std::string::npos) << child.output;
}
