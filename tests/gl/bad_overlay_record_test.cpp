// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Overlay fields of a host's record that contradict each other or mean nothing: the frame draws
// less, never reads past a list, and the repaired record gives the first picture again.
#include "gl/overlay_fixture.h"

#include <cstring>
#include <limits>

namespace ogl::test {
namespace {

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();

class BadOverlayRecord : public OverlayTest {
  protected:
    void SetUp() override {
        OverlayTest::SetUp();
        scene_->addMaterial(plainMaterial());
        scene_->addObject();
        scene_->addFace(plate(-6, -6, 6, 6));
        scene_->commit();
        scene_->object(1).highlight = 0x30000000;
        scene().overlayFlags = 0x8004;
        scene().hudFlags = 0x81;
        scene().symbol1.sizePercent = 100;
        scene().paths.count = 1;
        view().boxSize = {1000, 1000, 1000};
        view().moveOffset = {3000, 0, 1000};
        view().tooltip = {20, 150};
        view().tooltipText[0] = 'x';
        view().messageText = hostText("message");
        view().polygon = list<POLYGONPOINT>(4, {{50, 50}, {90, 90}}).data();
        view().polygonCount = 4;
        oneCluster(view().pathPixels, list<PIXEL>(3, {120, 40}));
        oneCluster(view().markerPixels, list<PIXEL>(3, {120, 40}));
        oneCluster(scene().pathPoints, list<POINT3D>(3, {{0, 0, 0}, {}, 1}));
    }
    template <class T> std::span<T> list(size_t count, T element) {
        auto* first = static_cast<T*>(memory_.allocate(count * sizeof(T)));
        std::fill_n(first, count, element);
        return {first, count};
    }
    template <class T> void oneCluster(VLIST& target, std::span<T> items) {
        const INDEX all{0, static_cast<int32_t>(items.size())};
        host::fillList(memory_, target.index, std::span(&all, 1));
        host::fillList(memory_, target.items, std::span<const T>(items));
    }
    struct Field {
        const char* name;
        size_t offset; ///< in the view record
        size_t bytes;
        std::vector<int64_t> values;
    };
    /// Draws frames with every value in the field, then the repaired record.
    template <class Record> void tryValues(Record& record, const std::vector<Field>& fields) {
        for (const Field& field : fields) {
            auto* place = reinterpret_cast<uint8_t*>(&record) + field.offset;
            for (const uint32_t flags : {0x108000u, 0x3030u}) {
                view().flags = flags;
                const Picture expected = frame();
                uint8_t kept[8] = {};
                std::memcpy(kept, place, field.bytes);
                for (const int64_t value : field.values) {
                    std::memcpy(place, &value, field.bytes);
                    frame();
                    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR))
                        << field.name << " = " << value;
                }
                std::memcpy(place, kept, field.bytes);
                EXPECT_EQ(differingPixels(frame(), expected), 0) << field.name;
            }
        }
    }
};

int64_t bitsOf(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

int64_t bitsOf(double value) {
    int64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

TEST_F(BadOverlayRecord, DrawsLess) {
    const std::vector<int64_t> wild = {kMax, kMin, -1, 1};
    const std::vector<int64_t> fewer = {-1, 0, kMin};
    const std::vector<int64_t> clusters = {kMax, kMin, -1, 1, 2, 4};
    const std::vector<int64_t> floats = {bitsOf(std::numeric_limits<float>::infinity()),
                                         bitsOf(std::numeric_limits<float>::quiet_NaN()),
                                         bitsOf(3e38f)};
    const std::vector<int64_t> doubles = {bitsOf(std::numeric_limits<double>::infinity()),
                                          bitsOf(std::numeric_limits<double>::quiet_NaN()),
                                          bitsOf(1e300)};
    for (const int mode : {1, 2}) {
        view().mode = mode;
        tryValues(view(), {{"polygonCount", 16, 4, {kMax, kMin, -1, 0, 3, 0x10000000}},
                           {"polygon", 32, 4, {0}},
                           {"tooltipX", 116, 4, wild},
                           {"tooltipY", 120, 4, wild},
                           {"cursorA", 124, 4, wild},
                           {"cursorB", 132, 4, wild},
                           {"moveOffset", 140, 4, wild},
                           {"boxPosition", 154, 4, wild},
                           {"boxSize", 172, 4, wild},
                           {"boxAngle", 182, 4, floats},
                           {"pivot", 186, 4, wild},
                           {"markerPixels clusters", 194, 4, fewer},
                           {"markerPixels items", 214, 4, fewer},
                           {"markerPixels size", 226, 2, {-1, 0, 7}},
                           {"markerPixels data", 230, 4, {0}},
                           {"pathPixels clusters", 234, 4, fewer},
                           {"pathPixels items", 254, 4, fewer},
                           {"pathPixels size", 266, 2, {-1, 0, 7}},
                           {"pathPixels data", 270, 4, {0}},
                           {"messageText", 854, 4, {0}},
                           {"gizmo length", 1194, 4, floats},
                           {"gizmo translation", 1206, 4, floats},
                           {"gizmo angle", 1218, 8, doubles},
                           {"gizmo point", 1238, 4, floats}});
        tryValues(scene(), {{"symbol x", 6976, 4, wild},
                            {"symbol angle", 6990, 8, doubles},
                            {"symbol size", 7024, 2, {0, -32768, 32767}},
                            {"paths", 11720, 4, {kMax, kMin, -1, 0, 2}},
                            {"pathPoints clusters", 11740, 4, fewer},
                            {"pathPoints items", 11760, 4, fewer},
                            {"pathPoints size", 11772, 2, {-1, 0, 1}},
                            {"pathPoints data", 11776, 4, {0}},
                            {"unitScale", 15379, 8, doubles},
                            {"loops", 17193, 4, fewer},
                            {"loopPoints", 17213, 4, fewer},
                            {"faceLoops", 17421, 4, fewer}});
        for (const LIST& index : {view().pathPixels.index, view().markerPixels.index,
                                  scene().pathPoints.index, scene_->geometry().loops,
                                  scene_->geometry().faceLoops, scene_->geometry().clusters.index})
            tryValues(*static_cast<INDEX*>(index.data.get()),
                      {{"first", 0, 4, clusters}, {"count", 4, 4, clusters}});
    }
}

TEST_F(BadOverlayRecord, TakesTheTooltipFromItsFieldAlone) {
    std::memset(view().tooltipText, 'W', 80);
    view().tooltip = {-400, 150}; // follows the field; its first bytes could be text
    const Picture picture = frame();
    // 80 characters: the box ends at -400 + 7 * 80 + 5.
    EXPECT_GT(countNear(picture, {0, 137, 160, 150}, {255, 255, 191}, 1), 1000);
    EXPECT_EQ(countNear(picture, {168, 137, kViewSize, 150}, {255, 255, 191}, 1), 0);
}

TEST_F(BadOverlayRecord, DrawsNothingWithoutAViewOrASize) {
    selectDrawing();
    frame();
    scene_->geometry().view = nullptr;
    frame();
    scene_->geometry().view = &view();
    renderer_->setSize(0, 0);
    renderer_->drawToWindow(context_->primary);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

} // namespace
} // namespace ogl::test
