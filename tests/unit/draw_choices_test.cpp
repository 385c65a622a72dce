// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/draw_choices.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

constexpr uint32_t kOther = 0x40; // of the flags, one that decides nothing
constexpr EdgeMode kVisible = EdgeMode::Visible;
constexpr EdgeMode kHidden = EdgeMode::HiddenToo;
constexpr TextureMode kShared = TextureMode::SharedOnly;
constexpr TextureMode kAll = TextureMode::All;
constexpr ColorMode kMaterials = ColorMode::OfMaterials;
constexpr ColorMode kGrey = ColorMode::Grey;
constexpr ColorMode kWhite = ColorMode::White;

/// Two states of which each field of a call differs: what a mode leaves alone shows in both.
constexpr DrawChoices kBefore[] = {
    {0x8, EdgeMode::None, TextureMode::None, kMaterials, false, false, false, false},
    {0x4, kHidden, kAll, kGrey, true, true, true, true},
};

TEST(DrawChoices, FollowModeOptionsAndFlags) {
    const struct {
        const char* name;
        int mode;
        uint32_t photoOptions, drawingOptions, flags;
        EdgeMode edges;
        TextureMode textures;
        ColorMode colors;
        bool singleColor, roundEnds;
    } rows[] = {
        {"a draft", 7, 0, 0x320, 0, kVisible, kShared, kWhite, false, false},
        {"a draft, whatever is asked", 7, 0, 0, 0x2001000, kVisible, kShared, kWhite, false, false},
        {"full quality", 7, 0, 0, 1, kVisible, kShared, kMaterials, false, false},
        {"grey", 7, 0, 0, 0x1001, kVisible, kShared, kGrey, false, false},
        {"inline textures", 7, 0, 0, 0x2000001, kVisible, kAll, kMaterials, false, false},
        {"both", 8, 0, 0, 0x2001001, kVisible, kAll, kGrey, false, false},
        {"hidden edges", 8, 0x200, 0, 1, kHidden, kShared, kMaterials, false, false},
        {"one colour", 8, 0x20, 0x200, 1, kVisible, kShared, kMaterials, true, false},
        {"round ends", 7, 0x100, 0, kOther, kVisible, kShared, kWhite, false, true},
        {"a drawing", 10, 0x320, 0, 0x2001001, kVisible, kShared, kWhite, true, false},
        {"all of a drawing", 10, 0, 0x300, 0, kHidden, kShared, kWhite, true, true},
    };
    for (const auto& row : rows)
        for (const DrawChoices& before : kBefore) {
            SCENE scene{};
            scene.renderMode = row.mode;
            scene.photoOptions = row.photoOptions;
            scene.drawingOptions = row.drawingOptions;
            const bool lit = row.mode == 7 || (row.mode == 8 && before.useLighting);
            const DrawChoices expected{row.flags,       row.edges, row.textures,  row.colors,
                                       row.singleColor, true,      row.roundEnds, lit};
            EXPECT_EQ(choicesFor(scene, row.flags, before), expected) << row.name;
        }
}

TEST(DrawChoices, StayWhereAModeSaysNothing) {
    SCENE scene{};
    scene.photoOptions = scene.drawingOptions = 0x320;
    for (const DrawChoices& before : kBefore) {
        DrawChoices expected = before;
        expected.drawFlags = 0x2001001;
        for (const int mode : {9, 6, 12, 0, -1}) {
            scene.renderMode = mode;
            EXPECT_EQ(choicesFor(scene, 0x2001001, before), expected) << mode;
        }
        expected.textureMode = TextureMode::None;
        expected.drawFaces = expected.roundEdgeEnds = false;
        scene.renderMode = 11;
        EXPECT_EQ(choicesFor(scene, 0x2001001, before), expected) << "edges";

        const DrawChoices file{
            0x1000, EdgeMode::None,       kAll, kMaterials, before.singleColorEdges,
            false,  before.roundEdgeEnds, true};
        EXPECT_EQ(choicesForFile(0x1000, before), file);
    }
}

} // namespace
} // namespace ogl
