// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/parse_values.h"

#include "oglview/user_error.h"

#include <gtest/gtest.h>

namespace {

using namespace oglview;

TEST(ParseValues, RefusesEverythingElse) {
    for (const char* text :
         {"", "x", "640", "640x", "x480", "640x480x", "640x480 ", " 640x480", "0x480", "640x0",
          "-640x480", "640X480", "6e2x480", "30000x30000", "99999999999x1"})
        EXPECT_THROW(parseSize(text), UserError) << "'" << text << "'";
    for (const char* text : {"", "fff", "#fff", "gggggg", "1234567", "12 456", "+12345", "0x1234"})
        EXPECT_THROW(parseColor(text), UserError) << "'" << text << "'";
    for (const char* text :
         {"", "1,2", "1,2,3,4", "1,,3", "1,2,", ",1,2", "1,2,x", "1,2,nan", "1,2,inf", "1 2 3"})
        EXPECT_THROW(parsePoint(text, "--eye"), UserError) << "'" << text << "'";
}

TEST(ParseValues, ReadsSizesColoursAndPoints) {
    const Size size = parseSize("16384x16383");
    EXPECT_EQ(size.width, 16384);
    EXPECT_EQ(size.height, 16383);
    for (const char* text : {"1080fe", "#1080FE"}) {
        const ogl::host::Color color = parseColor(text);
        EXPECT_EQ(color.red, 0x10);
        EXPECT_EQ(color.green, 0x80);
        EXPECT_EQ(color.blue, 0xfe);
    }
    const ogl::host::Vec3 point = parsePoint("-1.5,2e1,.25", "--eye");
    EXPECT_EQ(point.x, -1.5);
    EXPECT_EQ(point.y, 20.0);
    EXPECT_EQ(point.z, 0.25);
}

TEST(ParseValues, MatchesNamesWithPatterns) {
    struct Row {
        const char* name;
        const char* pattern;
        bool fits;
    };
    const Row rows[] = {
        {"IfcSite_Garden", "IfcSite*", true},
        {"IfcSite_Garden", "ifcsite*", true},
        {"IfcSite_Garden", "IfcSite", false},
        {"IfcSite_Garden", "*", true},
        {"", "*", true},
        {"", "", true},
        {"a", "", false},
        {"", "?", false},
        {"roof", "r??f", true},
        {"roof", "r?f", false},
        {"aaab", "*aab", true},
        {"aabaac", "*aa*c", true},
        {"aabaac", "*aab", false},
        {"wall_1_2", "wall_*_2", true},
        {"wall_1_23", "wall_*_2", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(matches(row.name, row.pattern), row.fits) << row.name << " " << row.pattern;
}

} // namespace
