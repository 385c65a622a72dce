// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The exported record helpers, called as a host's compiler calls them, on records written byte by
// byte.
#include "abi/library.h"
#include "exported_names.h"
#include "platform/memory32.h"
#include "platform/win32.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

namespace {

using ogl::memory32::Kind;

using ListCreate = void(__stdcall*)(void* list, int growBy, int elementSize);
using ClusterListCreate = void(__stdcall*)(void* list, int growBy, int itemSize, int perCluster);
using UseClusterIndex = void*(__stdcall*)(void* list, void* index, LONG cluster);
using UseClusterCount = void*(__stdcall*)(void* list, LONG cluster, LONG* count);
using UsePath = void*(__stdcall*)(void* scene, LONG path, LONG* count);
using CursorAssign = void*(__thiscall*)(void* cursor, const void* source);

constexpr size_t kClusterListBytes = 40;
constexpr size_t kSceneBytes = 17461;
constexpr uint8_t kUntouched = 0xcc;

/// The function that stands in the export list under `listed`.
template <class Function> Function exported(std::string_view listed) {
    for (const ExportedName& name : kExportedNames) {
        if (name.listed == listed)
            return reinterpret_cast<Function>(reinterpret_cast<void*>(
                GetProcAddress(ogl::test::library().module, name.exported)));
    }
    return nullptr;
}

/// Zeroed memory with a 4-byte address, as the host's records have it.
class HostBytes {
  public:
    explicit HostBytes(size_t size)
        : bytes_(static_cast<uint8_t*>(ogl::memory32::allocate(size, Kind::Host)),
                 ogl::memory32::release) {}

    uint8_t* at(size_t offset) const { return bytes_.get() + offset; }
    uint32_t address() const { return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(at(0))); }
    void put16(size_t offset, int16_t value) const { std::memcpy(at(offset), &value, 2); }
    void put32(size_t offset, int32_t value) const { std::memcpy(at(offset), &value, 4); }
    void putAddress(size_t offset, uint32_t value) const { std::memcpy(at(offset), &value, 4); }

  private:
    std::unique_ptr<uint8_t, void (*)(void*)> bytes_;
};

/// A cluster list at `offset` of `record`: three clusters of 12-byte items.
class Clusters {
  public:
    Clusters(const HostBytes& record, size_t offset) : indices_(24), items_(12 * 10) {
        const int32_t firstAndCount[] = {3, 2, 0, 0, 5, 4};
        std::memcpy(indices_.at(0), firstAndCount, sizeof firstAndCount);
        record.put32(offset, 3);
        record.put16(offset + 12, 8);
        record.putAddress(offset + 16, indices_.address());
        record.put32(offset + 20, 10);
        record.put16(offset + 32, 12);
        record.putAddress(offset + 36, items_.address());
    }
    void* item(size_t number) const { return items_.at(12 * number); }

  private:
    HostBytes indices_;
    HostBytes items_;
};

struct Expected {
    LONG cluster;
    int firstItem; ///< -1: null
    LONG count;
};
constexpr Expected kClusterRows[] = {{0, 3, 2},  {1, 0, 0},   {2, 5, 4},
                                     {3, -1, 0}, {-1, -1, 0}, {0x7fffffff, -1, 0}};

TEST(RecordExports, EveryListedNameIsAFunctionOfItsOwn) {
    std::set<void*> functions;
    for (const ExportedName& name : kExportedNames) {
        auto* function =
            reinterpret_cast<void*>(GetProcAddress(ogl::test::library().module, name.exported));
        EXPECT_NE(function, nullptr) << name.exported;
        functions.insert(function);
    }
    EXPECT_EQ(functions.size(), 17u);
}

TEST(RecordExports, ListCreateWritesTwentyBytes) {
    const auto create = exported<ListCreate>("?Create@LIST@@QAGXHH@Z");
    std::vector<uint8_t> list(24, kUntouched);
    create(list.data(), 0x12345, 0x1abcd);
    const std::vector<uint8_t> expected = {
        0,    0,    0, 0, 0, 0, 0x45, 0x23, 0,          0,          0,          0,
        0xcd, 0xab, 0, 0, 0, 0, 0,    0,    kUntouched, kUntouched, kUntouched, kUntouched};
    EXPECT_EQ(list, expected);
}

TEST(RecordExports, ClusterListCreateWritesBothLists) {
    const auto create = exported<ClusterListCreate>("?Create@VLIST@@QAGXHHH@Z");
    std::vector<uint8_t> list(kClusterListBytes + 4, kUntouched);
    create(list.data(), 0x1234, 12, 0x101); // 0x1234 * 0x101 = 0x124634
    std::vector<uint8_t> expected(kClusterListBytes + 4, 0);
    expected[6] = 0x34;
    expected[7] = 0x12;
    expected[12] = 8;
    expected[20 + 6] = 0x34;
    expected[20 + 7] = 0x46;
    expected[20 + 12] = 12;
    std::fill_n(expected.end() - 4, 4, kUntouched);
    EXPECT_EQ(list, expected);
}

TEST(RecordExports, UseClusterCopiesTheIndex) {
    const auto use = exported<UseClusterIndex>("?UseCluster@VLIST@@QAGPAXPAUINDEX@@J@Z");
    const HostBytes record(kClusterListBytes);
    const Clusters clusters(record, 0);
    for (const Expected& row : kClusterRows) {
        int32_t index[] = {-77, -78, -79};
        void* const first = use(record.at(0), index, row.cluster);
        if (row.firstItem >= 0) {
            EXPECT_EQ(first, clusters.item(static_cast<size_t>(row.firstItem))) << row.cluster;
            EXPECT_EQ(index[0], row.firstItem);
            EXPECT_EQ(index[1], row.count);
        } else {
            EXPECT_EQ(first, nullptr) << row.cluster;
            EXPECT_EQ(index[0], -77);
            EXPECT_EQ(index[1], -78);
        }
        EXPECT_EQ(index[2], -79);
        EXPECT_EQ(use(record.at(0), nullptr, row.cluster), first);
    }
}

TEST(RecordExports, UseClusterTellsTheCount) {
    const auto use = exported<UseClusterCount>("?UseCluster@VLIST@@QAGPAXJPAJ@Z");
    const HostBytes record(kClusterListBytes);
    const Clusters clusters(record, 0);
    for (const Expected& row : kClusterRows) {
        LONG count[] = {-77, -78};
        void* const first = use(record.at(0), row.cluster, count);
        EXPECT_EQ(first,
                  row.firstItem < 0 ? nullptr : clusters.item(static_cast<size_t>(row.firstItem)));
        EXPECT_EQ(count[0], row.count) << row.cluster;
        EXPECT_EQ(count[1], -78);
        EXPECT_EQ(use(record.at(0), row.cluster, nullptr), first);
    }
}

TEST(RecordExports, UsePathKnowsTheCurrentPathAndBothBounds) {
    const auto use = exported<UsePath>("?UsePath@SCENE@@QAGPAUPOINT3D@@JPAJ@Z");
    const HostBytes scene(kSceneBytes);
    const Clusters clusters(scene, 11740);
    scene.put32(5654, 2); // the current path
    const struct {
        int32_t paths;
        LONG path;
        int firstItem;
        LONG count;
    } rows[] = {{3, 0, 3, 2},   {3, -2, 5, 4}, {3, -1, -1, 0}, {3, 3, -1, 0},
                {2, -2, -1, 0}, {9, 2, 5, 4},  {9, 3, -1, 0},  {0, 0, -1, 0}};
    for (const auto& row : rows) {
        scene.put32(11720, row.paths);
        LONG count = -77;
        void* const first = use(scene.at(0), row.path, &count);
        EXPECT_EQ(first,
                  row.firstItem < 0 ? nullptr : clusters.item(static_cast<size_t>(row.firstItem)))
            << "path " << row.path << " of " << row.paths;
        EXPECT_EQ(count, row.count);
        EXPECT_EQ(use(scene.at(0), row.path, nullptr), first);
    }
}

TEST(RecordExports, CursorAssignmentCopiesFourBytes) {
    const auto assign = exported<CursorAssign>("??4CWaitCursor@@QAEAAV0@ABV0@@Z");
    uint8_t target[] = {1, 2, 3, 4, 5};
    const uint8_t source[] = {11, 12, 13, 14, 15};
    EXPECT_EQ(assign(target, source), target);
    const uint8_t expected[] = {11, 12, 13, 14, 5};
    EXPECT_EQ(std::memcmp(target, expected, sizeof target), 0);
}

} // namespace
