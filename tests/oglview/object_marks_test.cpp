// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/object_marks.h"

#include <gtest/gtest.h>

#include <cstring>

namespace oglview {
namespace {

using ogl::host::kNone;

constexpr uint32_t kRed = 0x10000000;
constexpr uint32_t kBlue = 0x20000000;

class ObjectMarksTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"wall", "",
                                 "K\xc3\xbc"
                                 "che"})
            builder_.addObject(name);
        builder_.build();
    }
    uint32_t highlight(int object) const {
        const ogl::LIST objects = *builder_.scene()->geometry.objects.get();
        return static_cast<ogl::OBJECT*>(objects.data.get())[object].highlight;
    }
    std::vector<uint32_t> highlights() const { return {highlight(0), highlight(1), highlight(2)}; }
    ogl::VIEW& view() const { return *builder_.scene()->geometry.view.get(); }
    std::string tooltip() const { return reinterpret_cast<const char*>(view().tooltipText); }

    ogl::host::SceneBuilder builder_;
    ObjectMarks marks_{builder_};
};

using Bits = std::vector<uint32_t>;

TEST_F(ObjectMarksTest, MarksAndNamesWhatIsPointedAt) {
    EXPECT_FALSE(marks_.pointAt(kNone, 5, 5));
    EXPECT_TRUE(marks_.pointAt(0, 100, 50));
    EXPECT_EQ(highlights(), (Bits{kBlue, 0, 0}));
    EXPECT_EQ(tooltip(), "wall");
    EXPECT_GT(view().tooltip.x, 100);
    EXPECT_GT(view().tooltip.y, 50 + 15); // its box, 15 high, leaves the pointer free
    EXPECT_TRUE(marks_.pointAt(1, 100, 50));
    EXPECT_EQ(highlights(), (Bits{0, kBlue, 0}));
    EXPECT_EQ(tooltip(), "object 1");
    marks_.pointAt(2, 100, 50);
    EXPECT_EQ(tooltip(), "K?che");
    EXPECT_TRUE(marks_.pointAt(kNone, 100, 50));
    EXPECT_EQ(highlights(), (Bits{0, 0, 0}));
    EXPECT_EQ(tooltip(), "");
}

TEST_F(ObjectMarksTest, SelectsOneOrMore) {
    marks_.pointAt(0, 0, 0);
    marks_.select(false);
    EXPECT_EQ(highlights(), (Bits{kRed | kBlue, 0, 0}));
    marks_.pointAt(1, 0, 0);
    EXPECT_EQ(highlights(), (Bits{kRed, kBlue, 0}));
    marks_.select(true);
    marks_.pointAt(2, 0, 0);
    EXPECT_EQ(highlights(), (Bits{kRed, kRed, kBlue}));
    marks_.pointAt(1, 0, 0);
    marks_.select(true); // leaves again
    EXPECT_EQ(highlights(), (Bits{kRed, kBlue, 0}));
    marks_.select(false);
    EXPECT_EQ(marks_.selected(), (std::set<int>{1}));
    EXPECT_EQ(highlights(), (Bits{0, kRed | kBlue, 0}));
    marks_.pointAt(kNone, 0, 0);
    marks_.select(true);
    EXPECT_EQ(highlights(), (Bits{0, kRed, 0}));
    marks_.select(false);
    EXPECT_EQ(highlights(), (Bits{0, 0, 0}));
}

TEST_F(ObjectMarksTest, CutsLongNamesAtTheField) {
    std::fill_n(view().tooltipText, 80, uint8_t{'x'});
    builder_.setTooltip(std::string(200, 'y'), 3, 4);
    EXPECT_EQ(tooltip(), std::string(79, 'y'));
    builder_.setMessage(std::string(5000, 'z'));
    EXPECT_EQ(std::strlen(reinterpret_cast<const char*>(view().messageText.get())), 4095u);
}

} // namespace
} // namespace oglview
