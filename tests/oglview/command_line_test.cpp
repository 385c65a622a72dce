// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/command_line.h"

#include "oglview/user_error.h"
#include "support/captured_output.h"

#include <gtest/gtest.h>

namespace {

using namespace oglview;

/// Reads a line of words with single blanks between them.
Request read(const std::string& line) {
    std::vector<std::string> words{"oglview"};
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::vector<const char*> arguments;
    arguments.reserve(words.size());
    for (const std::string& word : words)
        arguments.push_back(word.c_str());
    return readCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, ReadsARenderCommand) {
    const Request request =
        read("render house.ifc -o house.png --mode edges --size 640x480 "
             "--camera -1,-2,3.5,4,5,6 --camera-up 0,1,0 --fov 55 --hide IfcSite* --hide *Dach* "
             "--unit cm --up z --all --both-sides --hidden-edges --round-ends --line-weight 12 "
             "--edge-opacity 40 --background 102030 --zoom-window -0.1,0.2,0.5,0.25 --samples 4");
    const auto* render = std::get_if<RenderOptions>(&request);
    ASSERT_NE(render, nullptr);
    EXPECT_EQ(render->model.model, "house.ifc");
    EXPECT_EQ(render->output, "house.png");
    EXPECT_EQ(render->style.mode, ogl::kRenderModeEdges);
    EXPECT_EQ(render->size.width, 640);
    ASSERT_TRUE(render->view.eye && render->view.target && render->view.up);
    EXPECT_EQ(render->view.eye->x, -1.0);
    EXPECT_EQ(render->view.eye->z, 3.5);
    EXPECT_EQ(render->view.target->z, 6.0);
    EXPECT_EQ(render->view.up->y, 1.0);
    EXPECT_EQ(render->view.fieldOfViewDegrees, 55.0);
    EXPECT_EQ(render->model.hide, (std::vector<std::string>{"IfcSite*", "*Dach*"}));
    EXPECT_EQ(render->model.import.lengthUnit, "cm");
    EXPECT_EQ(render->model.import.up, 'z');
    EXPECT_TRUE(render->model.import.keepHelpers && render->model.bothSides);
    EXPECT_TRUE(render->style.hiddenEdges && render->style.roundEnds);
    EXPECT_EQ(render->style.lineWeight, 12);
    EXPECT_EQ(render->style.edgeOpacityPercent, 40);
    ASSERT_TRUE(render->style.background && render->view.zoomWindow);
    EXPECT_EQ(render->style.background->green, 0x20);
    EXPECT_EQ(render->view.zoomWindow->centerX, -0.1);
    EXPECT_EQ(render->view.zoomWindow->height, 0.25);
    EXPECT_EQ(render->library.samples, 4);
}

TEST(CommandLine, RefusesInOneLine) {
    const char* const lines[] = {
        "",
        "paint",
        "render",
        "render flat",
        "render -o a.png",
        "render flat more -o a.png",
        "render flat -o a.png --size 0x0",
        "render flat -o a.png --size 30000x30000",
        "show flat --size 20000x100",
        "render flat -o a.png --mode rays",
        "render flat -o a.png --mode raytrace --samples 17",
        "render flat -o a.png --mode raytrace --ini space.ini",
        "render flat -o a.png --mode trace",
        "show flat --mode raytrace",
        "render flat -o a.png --sun 10",
        "render flat -o a.png --sun 10,91",
        "render flat -o a.png --surfaces pink",
        "show flat --mode file",
        "render flat -o a.png --exposure -1",
        "render flat -o a.png --occlusion 351",
        "render flat -o a.png --sketch 101",
        "render flat -o a.png --interior maybe",
        "render flat -o a.png --photo-samples 17",
        "render flat -o a.png --date 2025-06-21",
        "render flat -o a.png --sun 10,20 --date 2025-06-21 --time 12:00 --lat 0 --lon 0",
        "sunstudy flat -o a.png --date 2025-06-21 --lat 0 --lon 0 --from 12:00 --to 11:00",
        "sunstudy flat -o a.png --date 2025-06-21 --lat 0 --lon 0 --from 12:00 --to 13:00 --step 0",
        "render flat -o a.png --fov 0",
        "render flat -o a.png --fov wide",
        "render flat -o a.png --eye 1,2",
        "render flat -o a.png --camera 1,2,3,4,5,6 --eye 1,2,3",
        "render flat -o a.png --camera-up 0,0,0",
        "render flat -o a.png --zoom-window 0,0,0,1",
        "render flat -o a.png --edge-opacity 101",
        "render flat -o a.png --line-weight -1",
        "render flat -o a.png --samples 0",
        "render flat -o a.png --background white",
        "render flat -o a.png --no-such-option",
        "info flat --unit miles",
        "sun --date 2025-02-29 --time 12:00 --lat 50 --lon 10",
        "sun --date 2025-02-28x --time 12:00 --lat 50 --lon 10",
        "sun --date 2025-02-28 --time 24:00 --lat 50 --lon 10",
        "sun --date 2025-02-28 --time 12 --lat 50 --lon 10",
        "sun --date 2025-02-28 --time 12:00 --lat 91 --lon 10",
        "sun --date 2025-02-28 --time 12:00 --lat 50 --lon 190",
        "sun --date 2025-02-28 --time 12:00 --lat 50",
        "info flat --up x",
        "show flat -o a.png",
    };
    for (const char* line : lines) {
        try {
            read(line);
            ADD_FAILURE() << "accepted: " << line;
        } catch (const UserError& error) {
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << line;
            EXPECT_STRNE(error.what(), "") << line;
        }
    }
}

TEST(CommandLine, EveryCommandHasHelp) {
    for (const char* command : {"", "render", "show", "info", "sunstudy"}) {
        ogl::test::CapturedOutput output(1);
        const Request request = read(command + std::string(" --help"));
        const std::string text = output.stop();
        EXPECT_TRUE(std::holds_alternative<NothingToDo>(request));
        EXPECT_NE(text.find(*command != 0 ? "MODEL" : "render"), std::string::npos) << text;
    }
}

} // namespace
