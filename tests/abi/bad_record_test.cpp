// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Numbers in a host's record that contradict its lists: the frame draws less, and drawing the
// repaired record gives the first picture again.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/dib.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace ogl::test {
namespace {

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();

/// A number of `bytes` bytes at an address of the record or of one of its lists.
struct Field {
    std::string name;
    uint8_t* address;
    int bytes;
    std::vector<int32_t> values;
};

uint8_t* listData(SCENE* scene, size_t listOffset) {
    uint32_t address = 0;
    std::memcpy(&address, reinterpret_cast<uint8_t*>(scene) + listOffset + 16, sizeof address);
    return reinterpret_cast<uint8_t*>(static_cast<uintptr_t>(address));
}

/// The numbers that say where something lies or how much of it there is. A list's own count may
/// only shrink: how much memory a host really has behind it, nobody can tell.
std::vector<Field> fieldsOf(SCENE* scene) {
    auto* record = reinterpret_cast<uint8_t*>(scene);
    const std::vector<int32_t> less = {-1, 0, kMin};
    const std::vector<int32_t> wild = {-1, -2, 0, 1, 2, 35, 37, 71, 1000000, kMax, kMin};
    std::vector<Field> fields;
    struct List {
        const char* name;
        size_t offset;
    };
    for (const List& list : {List{"cluster index", 17113},
                             {"faces", 17133},
                             {"loops", 17193},
                             {"points", 17213},
                             {"face triangles", 17273},
                             {"triangle data", 17293},
                             {"materials", 17333},
                             {"face loops", 17421},
                             {"loop styles", 17441}}) {
        fields.push_back({std::string(list.name) + " count", record + list.offset, 4, less});
        fields.push_back(
            {std::string(list.name) + " element size", record + list.offset + 12, 2, {-1, 0, 1}});
        fields.push_back({std::string(list.name) + " data", record + list.offset + 16, 4, {0}});
    }
    const auto add = [&](const char* name, uint8_t* address, int bytes) {
        fields.push_back({name, address, bytes, wild});
    };
    add("cluster first", listData(scene, 17113), 4);
    add("cluster count", listData(scene, 17113) + 4, 4);
    add("triangles first", listData(scene, 17273), 4);
    add("triangles size", listData(scene, 17273) + 4, 4);
    add("face loops first", listData(scene, 17421), 4);
    add("face loops count", listData(scene, 17421) + 4, 4);
    add("loop first point", listData(scene, 17193), 4);
    add("loop point count", listData(scene, 17193) + 4, 4);
    add("texture coordinate", listData(scene, 17133) + 56, 4);
    add("material", listData(scene, 17133) + 60, 2);
    add("texture slot", listData(scene, 17333) + 256, 2);
    fields.push_back({"objects", record + 15375, 4, {0}});
    fields.push_back({"view", record + 17393, 4, {0}});
    uint8_t* view = reinterpret_cast<uint8_t*>(scene->geometry.view.get());
    fields.push_back({"cache count", view + 1174, 4, less});
    fields.push_back({"cache data", view + 1190, 4, {0}});
    fields.push_back({"zoom width", record + 491, 4, {kMax, 1, kMin}});
    fields.push_back({"line weight", record + 7710, 4, wild});
    fields.push_back({"edge opacity", record + 17105, 4, wild});
    return fields;
}

TEST(BadRecord, DrawsLessAndNeverLeavesItsLists) {
    const TempFolder folder;
    RenderContext* view = library().create(nullptr, 0, folder.hostFile("space.ini").c_str());
    ASSERT_NE(view, nullptr);
    WallScene scene;
    for (int mode : {kRenderModeDrawing, kRenderModeEdges}) {
        scene.setMode(mode);
        const auto draw = [&](Dib& dib) {
            library().releasePointer(nullptr, nullptr, 0); // the next frame rebuilds
            EXPECT_EQ(library().drawInDibSection(view, scene.record(), 1, dib.handle()), 1);
        };
        Dib expected(80, 60);
        draw(expected);
        for (const Field& field : fieldsOf(scene.record())) {
            for (int32_t value : field.values) {
                int32_t kept = 0;
                std::memcpy(&kept, field.address, static_cast<size_t>(field.bytes));
                std::memcpy(field.address, &value, static_cast<size_t>(field.bytes));
                Dib broken(80, 60);
                draw(broken);
                std::memcpy(field.address, &kept, static_cast<size_t>(field.bytes));
            }
            Dib repaired(80, 60);
            draw(repaired);
            EXPECT_EQ(repaired.bytes(), expected.bytes()) << field.name << ", mode " << mode;
        }
    }
    scene.handBack();
    library().release(view);
}

} // namespace
} // namespace ogl::test
