// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Records are written here by byte number and read through the code under test.
#include "scene/record_helpers.h"
#include "scene/record_views.h"

#include "platform/memory32.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace ogl {
namespace {

constexpr size_t kSceneBytes = 17461;
constexpr int kMaxInt = std::numeric_limits<int>::max();

/// Bytes below 4 GiB, filled with a pattern that no test expects.
class LowBytes {
  public:
    explicit LowBytes(size_t size)
        : data_(static_cast<uint8_t*>(memory32::allocate(size, memory32::Kind::Host))) {
        std::memset(data_, 0xA5, size);
    }
    ~LowBytes() { memory32::release(data_); }
    LowBytes(const LowBytes&) = delete;
    LowBytes& operator=(const LowBytes&) = delete;

    uint8_t* data() const { return data_; }
    uint32_t address() const { return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(data_)); }
    template <class T> void put(size_t offset, T value) {
        std::memcpy(data_ + offset, &value, sizeof value);
    }
    template <class T> T get(size_t offset) const {
        T value;
        std::memcpy(&value, data_ + offset, sizeof value);
        return value;
    }
    void putList(size_t offset, int32_t count, int16_t elementSize, uint32_t address) {
        put(offset, count);
        put(offset + 12, elementSize);
        put(offset + 16, address);
    }

  private:
    uint8_t* data_;
};

TEST(RecordHelpers, CreateTruncatesItsArgumentsAndClearsTheRest) {
    LowBytes bytes(40);
    createList(*reinterpret_cast<LIST*>(bytes.data()), 0x12345, -3);
    EXPECT_EQ(bytes.get<int32_t>(0), 0);
    EXPECT_EQ(bytes.get<int16_t>(4), 0);
    EXPECT_EQ(bytes.get<int16_t>(6), 0x2345);
    EXPECT_EQ(bytes.get<int32_t>(8), 0);
    EXPECT_EQ(bytes.get<int16_t>(12), -3);
    EXPECT_EQ(bytes.get<int16_t>(14), 0);
    EXPECT_EQ(bytes.get<uint32_t>(16), 0u);
    EXPECT_EQ(bytes.get<uint8_t>(20), 0xA5);

    createClusterList(*reinterpret_cast<VLIST*>(bytes.data()), 300, 64, 300);
    EXPECT_EQ(bytes.get<int16_t>(6), 300);
    EXPECT_EQ(bytes.get<int16_t>(12), 8);
    EXPECT_EQ(bytes.get<int16_t>(20 + 6), static_cast<int16_t>(90000));
    EXPECT_EQ(bytes.get<int16_t>(20 + 12), 64);
    // Overflow of the product wraps instead of being undefined.
    createClusterList(*reinterpret_cast<VLIST*>(bytes.data()), kMaxInt, 64, kMaxInt);
    EXPECT_EQ(bytes.get<int16_t>(20 + 6), 1);
}

/// A scene with two paths of 3 and 2 points of 14 bytes.
struct PathScene {
    LowBytes scene{kSceneBytes};
    LowBytes index{16};
    LowBytes points{5 * 14};

    PathScene() {
        index.put<int32_t>(0, 0);
        index.put<int32_t>(4, 3);
        index.put<int32_t>(8, 3);
        index.put<int32_t>(12, 2);
        scene.put<int32_t>(5654, 1);
        scene.putList(11720, 2, 4, 0);
        scene.putList(11740, 2, 8, index.address());
        scene.putList(11760, 5, 14, points.address());
    }
    SCENE& record() { return *reinterpret_cast<SCENE*>(scene.data()); }
};

TEST(RecordHelpers, PathsEndWithTheirCountOrTheirClusters) {
    PathScene host;
    EXPECT_EQ(usePath(host.record(), 1, nullptr), host.points.data() + 3 * 14);
    for (const int32_t paths : {1, 3}) {
        host.scene.put<int32_t>(11720, paths);
        int32_t count = 77;
        EXPECT_EQ(usePath(host.record(), std::min(paths, 2), &count), nullptr) << paths;
        EXPECT_EQ(count, 0) << paths;
    }
    host.scene.put<int32_t>(5654, -1);
    EXPECT_EQ(usePath(host.record(), -2, nullptr), nullptr);
}

TEST(RecordHelpers, ClustersWithoutItemsKeepTheirIndex) {
    PathScene host;
    host.scene.putList(11760, 5, 14, 0);
    const VLIST& list = *reinterpret_cast<VLIST*>(host.scene.data() + 11740);
    INDEX index{7, 8};
    EXPECT_EQ(useCluster(list, &index, 1), nullptr);
    EXPECT_EQ(index.first, 3);
    EXPECT_EQ(index.count, 2);
    int32_t count = 77;
    EXPECT_EQ(useCluster(list, 0, &count), nullptr);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(usePath(host.record(), 1, &count), nullptr);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(useCluster(list, 2, &count), nullptr);
    EXPECT_EQ(count, 0);
}

TEST(RecordViews, ListsThatCannotHoldWhatTheySayAreEmpty) {
    LowBytes data(4 * 64);
    LowBytes list(20);
    struct Row {
        const char* name;
        int32_t count;
        int16_t elementSize;
        uint32_t address;
        int size;
    };
    const uint32_t good = data.address();
    for (const Row& row : {Row{"good", 4, 64, good, 4}, Row{"negative count", -1, 64, good, 0},
                           Row{"no data", 4, 64, 0, 0}, Row{"element too small", 4, 63, good, 0},
                           Row{"negative element", 4, -64, good, 0},
                           Row{"past the address space", kMaxInt, 64, good, 0},
                           Row{"last byte of it", 1, 64, 0xFFFFFFC0u, 1},
                           Row{"one byte further", 1, 64, 0xFFFFFFC1u, 0}}) {
        list.putList(0, row.count, row.elementSize, row.address);
        const ListView<FACE> view(*reinterpret_cast<LIST*>(list.data()));
        EXPECT_EQ(view.size(), row.size) << row.name;
        EXPECT_EQ(view.at(-1), nullptr) << row.name;
        EXPECT_EQ(view.at(row.size), nullptr) << row.name;
    }
}

/// One face with triangle data of a given size.
struct FaceScene {
    LowBytes scene{kSceneBytes};
    LowBytes index{8};
    LowBytes bytes{288};

    FaceScene(int32_t first, int32_t size, int16_t itemSize) {
        std::memset(scene.data(), 0, kSceneBytes);
        index.put<int32_t>(0, first);
        index.put<int32_t>(4, size);
        scene.putList(17273, 1, 8, index.address());
        scene.putList(17293, 288, itemSize, bytes.address());
    }
};

TEST(RecordViews, TriangleCountsRoundDownAndStayInside) {
    struct Row {
        const char* name;
        int32_t first, size;
        int16_t itemSize;
        uint32_t flags;
        int triangles;
        int normalOffset; ///< -1 = none
    };
    for (const Row& row :
         {Row{"two", 0, 72, 1, 0, 2, -1}, Row{"rounded", 0, 71, 1, 0, 1, -1},
          Row{"too small", 0, 35, 1, 0, 0, -1}, Row{"negative", 0, -72, 1, 0, 0, -1},
          Row{"normals", 0, 144, 1, kFaceVertexNormals, 2, 72},
          Row{"normals later", 36, 144, 1, kFaceVertexNormals, 2, 108},
          Row{"cut at the end", 252, 72, 1, 0, 1, -1}, Row{"not bytes", 0, 72, 4, 0, 0, -1}}) {
        FaceScene host(row.first, row.size, row.itemSize);
        const SceneLists lists(*reinterpret_cast<SCENE*>(host.scene.data()));
        const FaceTriangles found = faceTriangles(lists, 0, row.flags);
        EXPECT_EQ(found.triangleCount, row.triangles) << row.name;
        if (row.triangles > 0) {
            EXPECT_EQ(found.positions, host.bytes.data() + row.first) << row.name;
        }
        EXPECT_EQ(found.normals,
                  row.normalOffset < 0 ? nullptr : host.bytes.data() + row.normalOffset)
            << row.name;
        EXPECT_EQ(faceTriangles(lists, 1, row.flags).triangleCount, 0) << row.name;
    }
}

TEST(RecordViews, ZoomWindowIsFittedByItsTighterSide) {
    struct Row {
        const char* name;
        int32_t centerX, centerY, windowWidth, windowHeight;
        int width, height;
        double zoom, shiftX;
    };
    for (const Row& row : {Row{"none", 8000, 0, 0, 0, 100, 100, 1.0, 0.0},
                           Row{"half", 0, 0, 16000, 16000, 100, 100, 2.0, 0.0},
                           Row{"by height", 3200, 0, 8000, 16000, 200, 100, 2.0, 0.1},
                           Row{"by width", -16000, 0, 64000, 16000, 200, 100, 1.0, -0.5},
                           Row{"empty view", 3200, 0, 8000, 16000, 0, 0, 1.0, 0.0}}) {
        LowBytes scene(kSceneBytes);
        scene.put(467, row.centerX);
        scene.put(471, row.centerY);
        scene.put(491, row.windowWidth);
        scene.put(495, row.windowHeight);
        const ZoomWindow window =
            zoomWindow(*reinterpret_cast<SCENE*>(scene.data()), row.width, row.height);
        EXPECT_DOUBLE_EQ(window.zoom, row.zoom) << row.name;
        EXPECT_DOUBLE_EQ(window.centerX, row.shiftX) << row.name;
    }
}

} // namespace
} // namespace ogl
