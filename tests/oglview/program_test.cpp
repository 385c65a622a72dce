// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The program as a person runs it: what it draws and what it says.
#include "oglview/programs.h"
#include "support/image_bytes.h"
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <stb_image.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>
#include <vector>

namespace {

using ogl::test::ProcessResult;
using ogl::test::runProgram;
using ogl::test::TempFolder;
using ogl::test::viewerProgram;

struct Image {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels; ///< red, green, blue; top row first

    const uint8_t* at(int x, int y) const {
        return &pixels[static_cast<size_t>((y * width + x) * 3)];
    }
    bool isWhite(int x, int y) const {
        const uint8_t* p = at(x, y);
        return p[0] == 255 && p[1] == 255 && p[2] == 255;
    }
    /// Dark enough to be a line, anywhere within one pixel.
    bool hasLineNear(int x, int y) const {
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                if (at(std::clamp(x + dx, 0, width - 1), std::clamp(y + dy, 0, height - 1))[1] <
                    170)
                    return true;
        return false;
    }
    double inkShare() const {
        size_t dark = 0;
        for (size_t k = 1; k < pixels.size(); k += 3)
            dark += pixels[k] < 200 ? 1 : 0;
        return static_cast<double>(dark) * 3.0 / static_cast<double>(pixels.size());
    }
};

Image readImage(const std::string& path) {
    Image image;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load(path.c_str(), &image.width, &image.height, nullptr, 3), stbi_image_free);
    if (pixels)
        image.pixels.assign(pixels.get(),
                            pixels.get() + static_cast<ptrdiff_t>(image.width) * image.height * 3);
    return image;
}

class Program : public testing::Test {
  protected:
    void SetUp() override {
        if (!std::filesystem::exists(viewerProgram()))
            GTEST_SKIP() << "oglview is not built";
    }
    ProcessResult run(const std::vector<std::string>& arguments) const {
        return runProgram(viewerProgram(), arguments, {{"OGL_DEBUG", "0"}}); // no trace
    }
    void expectOneLine(const std::vector<std::string>& arguments, const std::string& says) const {
        const ProcessResult result = run(arguments);
        EXPECT_GT(result.exitCode, 0) << result.output;
        EXPECT_TRUE(result.output.starts_with("oglview: ")) << result.output;
        EXPECT_NE(result.output.find(says), std::string::npos) << result.output;
        EXPECT_EQ(std::ranges::count(result.output, '\n'), 1) << result.output;
    }
    TempFolder folder_;
};

/// A cube of 2 m around the origin, y up.
constexpr const char* kCube = R"(o cube
v -1 -1 -1
v 1 -1 -1
v 1 1 -1
v -1 1 -1
v -1 -1 1
v 1 -1 1
v 1 1 1
v -1 1 1
f 1 4 3 2
f 5 6 7 8
f 1 2 6 5
f 4 8 7 3
f 1 5 8 4
f 2 3 7 6
)";

// A slab on the ground, seen from the front: below is dark, above is background.
TEST_F(Program, DrawsLitPicturesTheUsualWayUp) {
    if (!ogl::test::programReadsModels())
        GTEST_SKIP() << "this build reads no model files";
    const std::string model = folder_.file("slab.obj");
    ogl::test::writeFile(model, "v -2 0 0\nv 2 0 0\nv 2 0 1\nv -2 0 1\nf 1 2 3 4\n");
    for (const char* mode : {"file", "shadow"}) {
        const std::string path = folder_.file("slab.png");
        const ProcessResult result =
            run({"render", model, "-o", path, "--mode", mode, "--unit", "m", "--up", "z",
                 "--camera", "0,-5,1,0,0,1", "--sun", "90,40", "--size", "300x200"});
        ASSERT_EQ(result.exitCode, 0) << result.output;
        const Image image = readImage(path);
        EXPECT_LT(image.at(150, 115)[1], 190) << mode; // its side away from the sun
        EXPECT_GT(image.at(150, 60)[1], 220) << mode;
    }
}

// Some software drivers never finish this frame with anisotropic textures.
TEST_F(Program, DrawsTexturesAtGrazingAngles) {
    const std::string path = folder_.file("grazing.png");
    const ProcessResult result =
        run({"render", "flat", "-o", path, "--camera", "7.81913,-14.850214,8.689978,6.3,3.9,0.3",
             "--fov", "40", "--size", "600x420", "--antialias", "1"});
    ASSERT_EQ(result.exitCode, 0) << result.output;
    EXPECT_GT(readImage(path).inkShare(), 0.01);
}

// The lawn is below, the sky above.
TEST_F(Program, ShowsThePreviewOfRays) {
    const std::string path = folder_.file("rays.png");
    const ProcessResult result =
        run({"render", "flat", "-o", path, "--size", "64x44", "--mode", "raytrace"});
    ASSERT_EQ(result.exitCode, 0) << result.output;
    const Image image = readImage(path);
    ASSERT_EQ(image.width, 64);
    int seen = 0, other = 0;
    for (int y = 0; y < 44; ++y)
        for (int x = 0; x < 64; ++x) {
            const int grey = image.at(x, y)[0];
            seen += std::abs(grey - 128) <= 1 ? 1 : 0;
            other += grey > 129 ? 1 : 0;
        }
    EXPECT_GT(seen, 64 * 44 / 2);
    EXPECT_LT(seen, 64 * 44 * 9 / 10);
    EXPECT_EQ(other, 0);
    EXPECT_EQ(image.at(2, 2)[1], 0);
    EXPECT_NEAR(image.at(4, 40)[1], 128, 1);
}

// The published example of the algorithm has other air and another height; its azimuth does not
// depend on them.
TEST_F(Program, TellsWhereTheSunStands) {
    const std::vector<std::string> words = {"sun",   "--date",    "2003-10-17", "--time",   "19:30",
                                            "--lat", "39.742476", "--lon",      "-105.1786"};
    const ProcessResult line = run(words);
    ASSERT_EQ(line.exitCode, 0) << line.output;
    EXPECT_EQ(std::ranges::count(line.output, '\n'), 1);
    std::vector<std::string> jsonWords = words;
    jsonWords.push_back("--json");
    const ProcessResult json = run(jsonWords);
    ASSERT_EQ(json.exitCode, 0) << json.output;
    double zenith = 0, azimuth = 0, x = 0, y = 0, z = 0;
    ASSERT_EQ(std::sscanf(json.output.c_str(),
                          R"({"zenith":%lf,"azimuth":%lf,"direction":[%lf,%lf,%lf]})", &zenith,
                          &azimuth, &x, &y, &z),
              5)
        << json.output;
    // Half a minute before the published moment, when the azimuth grows by 0.33 degrees a minute.
    EXPECT_NEAR(azimuth, 194.340 - 0.16, 0.02);
    EXPECT_NEAR(zenith, 50.11, 0.05);
    EXPECT_NEAR(z, -std::cos(zenith * 0.017453292519943), 1e-6);
    EXPECT_NEAR(std::hypot(x, y, z), 1.0, 1e-6);
    EXPECT_GT(y, 0.0) << "the light travels north";
}

TEST_F(Program, ShowsTheTexturesOfAModel) {
    if (!ogl::test::programReadsModels())
        GTEST_SKIP() << "this build reads no model files";
    const ogl::test::Bytes picture =
        ogl::test::TgaBytes{.width = 1, .height = 2, .data = {40, 90, 200, 60, 180, 20}}.file();
    ogl::test::writeFile(folder_.file("wall.tga"), std::string(picture.begin(), picture.end()));
    ogl::test::writeFile(folder_.file("wall.mtl"), "newmtl wall\nmap_Kd wall.tga\n"
                                                   "newmtl lost\nmap_Kd lost.png\n");
    // A wall of 4 x 4 m in the plane y = 0, the second one beside it.
    ogl::test::writeFile(folder_.file("wall.obj"),
                         "mtllib wall.mtl\nv 0 0 0\nv 4 0 0\nv 4 0 4\nv 0 0 4\nv 8 0 0\n"
                         "v 8 0 4\nvt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\n"
                         "usemtl wall\nf 1/1 2/2 3/3 4/4\nusemtl lost\nf 2/1 5/2 6/3 3/4\n");
    const ProcessResult result =
        run({"render", folder_.file("wall.obj"), "--up", "z", "--unit", "m", "--size", "200x200",
             "--antialias", "1", "--camera", "2,-4,2,2,0,2", "--fov", "90", "-o",
             folder_.file("wall.png")});
    ASSERT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(result.output,
              "oglview: note: texture 'lost.png' is not shown: there is no such file\n");
    // 8 m are 200 pixels: the wall is 100 pixels wide, each texel 50 high; linear filtering mixes
    // them away from their middles.
    const Image image = readImage(folder_.file("wall.png"));
    ASSERT_EQ(image.height, 200);
    const auto isNear = [&](int x, int y, int red, int green, int blue) {
        const uint8_t* p = image.at(x, y);
        return std::abs(p[0] - red) < 6 && std::abs(p[1] - green) < 6 && std::abs(p[2] - blue) < 6;
    };
    EXPECT_TRUE(isNear(100, 75, 20, 180, 60));
    EXPECT_TRUE(isNear(100, 125, 200, 90, 40));
    EXPECT_TRUE(image.isWhite(180, 100)) << "the other wall's texture is missing";
}

TEST_F(Program, DrawsACubeExactlyWhereItIs) {
    if (!ogl::test::programReadsModels())
        GTEST_SKIP() << "this build reads no model files";
    ogl::test::writeFile(folder_.file("cube.obj"), kCube);
    const std::string path = folder_.file("cube.png");
    // From the front at 11 m with a field of view that shows 4 m at the front face, 10 m away:
    // 2 atan(0.2) = 22.6198649 degrees. The face is then half as high as the picture.
    const ProcessResult result = run({"render", folder_.file("cube.obj"), "-o", path, "--size",
                                      "400x400", "--camera", "0,-11,0,0,0,0", "--fov", "22.6198649",
                                      "--line-weight", "16", "--edge-opacity", "100"});
    ASSERT_EQ(result.exitCode, 0) << result.output;
    const Image image = readImage(path);
    ASSERT_EQ(image.width, 400);
    for (int k = 110; k <= 290; k += 15) {
        EXPECT_TRUE(image.hasLineNear(k, 100) && image.hasLineNear(k, 300)) << k;
        EXPECT_TRUE(image.hasLineNear(100, k) && image.hasLineNear(300, k)) << k;
    }
    // No diagonal, and nothing of the back: white inside and outside.
    for (int y = 5; y < 400; y += 13)
        for (int x = 5; x < 400; x += 13) {
            const bool nearLine = (std::abs(x - 100) < 5 || std::abs(x - 300) < 5 ||
                                   std::abs(y - 100) < 5 || std::abs(y - 300) < 5);
            EXPECT_TRUE(nearLine || image.isWhite(x, y)) << x << ", " << y;
        }
}

TEST_F(Program, TellsWhatIsInAModel) {
    const ProcessResult flat = run({"info", "flat", "--objects"});
    EXPECT_EQ(flat.exitCode, 0);
    for (const char* word : {"built-in sample", "objects", "triangles", "materials", "bounds"})
        EXPECT_NE(flat.output.find(word), std::string::npos) << word;
    if (!ogl::test::programReadsModels())
        return;
    ogl::test::writeFile(folder_.file("cube.obj"), kCube);
    const ProcessResult cube = run({"info", folder_.file("cube.obj")});
    EXPECT_EQ(cube.exitCode, 0);
    for (const char* line : {"objects    1\n", "faces      6\n", "triangles  12\n",
                             "size       2.000 x 2.000 x 2.000 m\n"})
        EXPECT_NE(cube.output.find(line), std::string::npos) << cube.output;
}

TEST_F(Program, TellsWhatLiesUnderAPixel) {
    const auto picked = [&](std::vector<std::string> arguments, const std::string& more) {
        arguments.insert(arguments.begin(), "pick");
        arguments.insert(arguments.end(), {"--size", "100x100"});
        std::istringstream words(more);
        for (std::string word; words >> word;)
            arguments.push_back(word);
        return run(arguments).output;
    };
    // Straight up there is nothing; a plan is without the roof.
    const std::string sky = "--camera 2,2,50,2,2,90";
    EXPECT_EQ(picked({"flat", "50", "50"}, sky), "nothing\n");
    EXPECT_EQ(picked({"flat", "50", "50"}, sky + " --json"),
              "{\"x\":50,\"y\":50,\"objects\":[]}\n");
    const std::string plan = picked({"flat", "50", "50"}, "--view plan");
    EXPECT_NE(plan.find("floor"), std::string::npos) << plan;
    EXPECT_EQ(plan.find("roof"), std::string::npos) << plan;
    if (!ogl::test::programReadsModels())
        return;
    // Two triangles, 4 m high and upright to their right, 20 and 22 m away: 7 m are 100 pixels.
    ogl::test::writeFile(folder_.file("two.obj"),
                         "o near\"one\"\nv 0 0 0\nv 4 0 0\nv 4 4 0\nf 1 2 3\n"
                         "o far\nv 0 0 -2\nv 4 0 -2\nv 4 4 -2\nf 4 5 6\n");
    const std::string both = "     0  near\"one\"\n     1  far\n";
    const struct Row {
        const char* y;
        const char* more;
        std::string output;
    } rows[] = {
        {"70", "", both},
        {"70", "--only near*", "     0  near\"one\"\n"},
        {"70", "--hide NEAR*", "     1  far\n"},
        {"29", "", "nothing\n"},
        {"29", "--zoom-window 0,-0.2,0.5,0.5", both},
        {"70", "--zoom-window 0,-0.2,0.5,0.5", "nothing\n"},
        {"70", "--json",
         "{\"x\":60,\"y\":70,\"objects\":[{\"number\":0,\"name\":\"near\\\"one\\\"\"},"
         "{\"number\":1,\"name\":\"far\"}]}\n"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(picked({folder_.file("two.obj"), "60", row.y},
                         "--camera 2.5,-20,2,2.5,0,2 --fov 20 --unit m " + std::string(row.more)),
                  row.output)
            << row.y << " " << row.more;
}

// Without a word about it, light comes through the windows alone where the camera stands inside;
// what is seen through them is the program's own, unless the library's configuration is the user's.
TEST_F(Program, LightsPhotosByWhereTheCameraStands) {
    ogl::test::writeFile(folder_.file("same.ini"),
                         "[OpenGL]\nnumAASamplesDrawing=8\nnumAASamplesPhoto=4\n");
    const auto pixels = [&](const std::string& view, const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"render", "flat",  "-o",     folder_.file("photo.png"),
                                           "--mode", "photo", "--size", "48x32",
                                           "--view", view};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.output;
        return readImage(folder_.file("photo.png")).pixels;
    };
    const auto inside = pixels("living", {});
    EXPECT_NE(inside, pixels("living", {"--interior", "no"}));
    EXPECT_NE(inside, pixels("living", {"--ini", folder_.file("same.ini")}));
    EXPECT_NE(ogl::test::readFile(folder_.file("ogl.log")).find("[OpenGL]"), std::string::npos)
        << "beside the configuration";
    EXPECT_EQ(pixels("street", {}), pixels("street", {"--interior", "no"}));
}

TEST_F(Program, SaysInOneLineWhatIsWrong) {
    const std::string out = folder_.file("out.png");
    const std::vector<std::string> day = {"--date", "2025-02-28", "--lat", "50", "--lon", "10"};
    const struct Row {
        std::vector<std::string> arguments;
        std::string says;
        bool drawsIntoOut = false;
        bool ofDay = false;
    } rows[] = {
        {{}, "subcommand"},
        {{"paint"}, "subcommand"},
        {{"render", "flat"}, "--output is required"},
        {{"render", "palace"}, "cannot read 'palace'", true},
        {{"render", folder_.file("no.ifc")}, "No such file", true},
        {{"render", "flat", "--size", "0x0"}, "out of range", true},
        {{"render", "flat", "--antialias", "5"}, "--antialias takes 1 to 4", true},
        {{"render", "flat", "-o", folder_.file("none/out.png")}, "there is no folder"},
        {{"render", "flat", "-o", folder_.file("out.jpg")}, ".png or .bmp"},
        {{"render", "flat", "--mode", "oil"}, "no mode 'oil'", true},
        {{"render", "flat", "--view", "attic"},
         "no view 'attic'; views are: outside, inside",
         true},
        {{"render", "flat", "--hide", "nothing-like-it"}, "nothing-like-it", true},
        {{"render", "flat", "--hide", "*", "--view", "plan"}, "every object is hidden", true},
        {{"render", "flat", "--eye", "1,1,1", "--target", "1,1,1"}, "same point", true},
        {{"render", "flat", "--ini", folder_.file("none.ini")}, "none.ini", true},
        {{"show", "flat", "--size", "20000x100"}, "--size takes 1 to 16384"},
        {{"show", "flat"}, "out.png", true},
        {{"sun"}, "--time is required", false, true},
        {{"sunstudy", "flat", "--from", "12:00", "--to", "11:00"}, "--to is earlier", true, true},
        {{"sunstudy", "flat", "--from", "12:00", "--to", "13:00", "--step", "0"},
         "--step takes 1 to 1440",
         true,
         true},
        {{"export", "flat", folder_.file("scene.js")}, "Sessions"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = row.arguments;
        if (row.drawsIntoOut)
            arguments.insert(arguments.end(), {"-o", out});
        if (row.ofDay)
            arguments.insert(arguments.end(), day.begin(), day.end());
        expectOneLine(arguments, row.says);
    }
    EXPECT_FALSE(std::filesystem::exists(out));
    if (!ogl::test::programReadsModels())
        return;
    ogl::test::writeFile(folder_.file("cube.obj"), kCube);
    expectOneLine(
        {"render", folder_.file("cube.obj"), "-o", out, "--view", "inside", "--unit", "cm"},
        "no room to look around in");
}

TEST_F(Program, EverySubcommandHasHelp) {
    const ProcessResult all = run({"--help"});
    EXPECT_EQ(all.exitCode, 0);
    for (const char* name :
         {"render", "show", "export", "serve", "info", "pick", "sun", "sunstudy"}) {
        EXPECT_NE(all.output.find("\n  " + std::string(name) + " "), std::string::npos) << name;
        const ProcessResult help = run({name, "--help"});
        EXPECT_EQ(help.exitCode, 0) << name;
        EXPECT_NE(help.output.find("Usage: oglview " + std::string(name)), std::string::npos)
            << help.output;
    }
}

// Pictures of a morning: one each hour, each with the sun of its time.
TEST_F(Program, DrawsTheHoursOfADay) {
    const ProcessResult result = run({"sunstudy", "flat", "-o", folder_.file("day.png"), "--date",
                                      "2025-03-20", "--lat", "50", "--lon", "0", "--from", "04:00",
                                      "--to", "09:59", "--step", "300", "--size", "96x64"});
    ASSERT_EQ(result.exitCode, 0) << result.output;
    EXPECT_NE(result.output.find("day-01.png  04:00  sun"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("below the horizon"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("day-02.png  09:00  sun"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("above the horizon"), std::string::npos) << result.output;
    const auto brightness = [&](const char* name) {
        const Image image = readImage(folder_.file(name));
        EXPECT_EQ(image.width, 96);
        int sum = 0;
        for (const uint8_t value : image.pixels)
            sum += value;
        return sum;
    };
    EXPECT_GT(brightness("day-02.png"), brightness("day-01.png"));
    EXPECT_FALSE(std::filesystem::exists(folder_.file("day-03.png")));
}

} // namespace
