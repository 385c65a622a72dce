// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/texture_file.h"

#include "fixed/textures/texture_image.h"
#include "platform/memory32.h"
#include "platform/win32.h"
#include "support/image_bytes.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace ogl::test {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

/// The image while the test looks at it. No image may be left over.
class Made {
  public:
    explicit Made(const TextureFile& file) { slot_ = makeTextureImage(file); }
    ~Made() { releaseTextureImage(slot_); }
    Made(const Made&) = delete;
    Made& operator=(const Made&) = delete;

    TextureImage* get() const { return slot_.get(); }
    TextureImage* operator->() const { return slot_.get(); }

  private:
    Ptr32<TextureImage> slot_{};
};

class TextureFileTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_EQ(memory32::liveCount(memory32::Kind::TextureImage), 0u); }
};

Bytes counting(size_t count) {
    Bytes bytes(count);
    for (size_t k = 0; k < count; ++k)
        bytes[k] = static_cast<uint8_t>(k + 1);
    return bytes;
}

/// A DIB whose bytes count upwards through the padding too.
Bytes dibFile(int width, int height, int bits) {
    Bytes bytes = dibHeader(width, height, bits);
    const Bytes rows = counting(static_cast<size_t>((width * bits + 31) / 32 * 4 * height));
    bytes.insert(bytes.end(), rows.begin(), rows.end());
    return bytes;
}

template <class T> void put(Bytes& bytes, size_t offset, T value) {
    std::memcpy(&bytes[offset], &value, sizeof value);
}

Bytes tgaFile(int width, int height, int bits, bool runs = false) {
    const auto pixels = static_cast<size_t>(width * height);
    TgaBytes tga{.imageType = static_cast<uint8_t>(bits == 8 ? 3 : 2),
                 .width = width,
                 .height = height,
                 .bitsPerPixel = static_cast<uint8_t>(bits),
                 .data = counting(pixels * static_cast<size_t>(bits) / 8)};
    if (runs) {
        tga.imageType |= 8;
        tga.data.insert(tga.data.begin(), static_cast<uint8_t>(pixels - 1));
    }
    return tga.file();
}

struct Expected {
    int type;
    int usage;
    int bits;
    TextureRole role;
    unsigned format;
};

constexpr Expected kTable[] = {
    {7, 0, 24, TextureRole::Color, GL_RGB},         {7, 0, 32, TextureRole::Color, GL_RGBA},
    {7, 5, 24, TextureRole::Color, GL_RGB},         {7, 5, 32, TextureRole::Color, GL_RGBA},
    {7, 2, 8, TextureRole::Specular, GL_LUMINANCE}, {7, 2, 24, TextureRole::Specular, GL_RGB},
    {7, 3, 8, TextureRole::Specular, GL_LUMINANCE}, {7, 3, 24, TextureRole::Specular, GL_RGB},
    {7, 4, 24, TextureRole::Bump, GL_RGB},          {7, 6, 24, TextureRole::NormalMap, GL_RGB},
    {8, 0, 24, TextureRole::Color, GL_BGR},         {8, 0, 32, TextureRole::Color, GL_BGRA},
    {8, 5, 24, TextureRole::Color, GL_BGR},         {8, 5, 32, TextureRole::Color, GL_BGRA},
    {8, 1, 8, TextureRole::Opacity, GL_LUMINANCE},  {8, 1, 24, TextureRole::Opacity, GL_RGB},
    {8, 1, 32, TextureRole::Opacity, GL_RGBA},      {8, 3, 8, TextureRole::Specular, GL_LUMINANCE},
    {8, 3, 24, TextureRole::Specular, GL_RGB},      {8, 3, 32, TextureRole::Specular, GL_RGBA},
    {8, 4, 24, TextureRole::Bump, GL_RGB},          {8, 4, 32, TextureRole::Bump, GL_RGBA},
    {8, 6, 24, TextureRole::NormalMap, GL_RGB},
};

const Expected* expectedOf(int type, int usage, int bits) {
    for (const Expected& row : kTable)
        if (row.type == type && row.usage == usage && row.bits == bits)
            return &row;
    return nullptr;
}

TEST_F(TextureFileTest, KnowsTheseCombinationsAndNoOthers) {
    for (const int bits : {1, 8, 15, 16, 24, 32, 0, -24}) {
        const bool whole = bits == 8 || bits == 24 || bits == 32;
        const Bytes dib = dibFile(3, 2, whole ? bits : 24);
        const Bytes tga = tgaFile(3, 2, whole ? bits : 24);
        for (int type = -1; type < 12; ++type)
            for (int usage = -1; usage < 9; ++usage) {
                SCOPED_TRACE(testing::Message()
                             << "type " << type << " usage " << usage << " bits " << bits);
                const Made image({type == 7 ? tga : dib, type, usage, 3, 2, bits});
                const Expected* expected = expectedOf(type, usage, bits);
                ASSERT_EQ(image.get() != nullptr, expected != nullptr);
                if (expected == nullptr)
                    continue;
                EXPECT_EQ(image->role, expected->role);
                EXPECT_EQ(image->pixelFormat, expected->format);
                EXPECT_EQ(image->width, 3);
                EXPECT_EQ(image->height, 2);
                EXPECT_EQ(image->strength, 1.0f);
                EXPECT_FALSE(image->hasTexture());
                EXPECT_TRUE(hasAllPixels(*image.get()));
            }
    }
}

TEST_F(TextureFileTest, ShowsHostsARecordWithoutGaps) {
    const Bytes file = tgaFile(3, 2, 24);
    const Made image({file, 7, 4, 3, 2, 24});
    const auto* record = reinterpret_cast<const uint8_t*>(image.get());
    ASSERT_NE(record, nullptr);
    const auto at = [record](size_t offset, auto value) {
        std::memcpy(&value, record + offset, sizeof value);
        return value;
    };
    EXPECT_EQ(at(0, int32_t{}), 3);
    EXPECT_EQ(at(4, int32_t{}), 2);
    EXPECT_EQ(at(8, int32_t{}), 3);
    EXPECT_EQ(at(12, uint32_t{}), 0x1907u);
    EXPECT_EQ(at(16, uint32_t{}), 0xffffffffu);
    const auto* pixels = at(20, static_cast<const uint8_t*>(nullptr));
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(Bytes(pixels, pixels + 18),
              (Bytes{12, 11, 10, 15, 14, 13, 18, 17, 16, 3, 2, 1, 6, 5, 4, 9, 8, 7}));
    EXPECT_EQ(at(20 + sizeof pixels, float{}), 1.0f);
}

// Each in memory of exactly its length, so that a sanitizer sees a read past the end.
TEST_F(TextureFileTest, RefusesEveryTruncation) {
    const struct {
        const char* name;
        int type, bits;
        Bytes file;
    } rows[] = {
        {"DIB, 24 bits", 8, 24, dibFile(3, 3, 24)},    {"DIB, 32 bits", 8, 32, dibFile(3, 3, 32)},
        {"TGA, 24 bits", 7, 24, tgaFile(3, 3, 24)},    {"TGA, 32 bits", 7, 32, tgaFile(3, 3, 32)},
        {"TGA, runs", 7, 24, tgaFile(3, 3, 24, true)},
    };
    for (const auto& row : rows)
        for (size_t length = 0; length <= row.file.size(); ++length) {
            const Bytes cut(row.file.begin(), row.file.begin() + static_cast<ptrdiff_t>(length));
            const Made image({cut, row.type, 0, 3, 3, row.bits});
            EXPECT_EQ(image.get() != nullptr, length == row.file.size())
                << row.name << ", " << length << " bytes";
        }
}

TEST_F(TextureFileTest, TakesTheSizeFromTheCall) {
    const struct {
        int width, height, bits;
        bool tgaIsEnough, dibIsEnough; ///< for a texture
    } rows[] = {{3, 3, 24, true, true},
                {4, 3, 24, false, true}, // a DIB's rows are that long with their padding
                {3, 4, 24, false, false},
                {3, 3, 32, false, true},
                {0, 3, 24, false, false},
                {-3, 3, 24, false, false},
                {kMost, 3, 24, false, false},
                {0x40000001, 1, 32, false, false}, // 4 bytes where sizes have 32 bits
                {kLeast, kLeast, 24, false, false}};
    for (const auto& row : rows)
        for (const int type : {7, 8}) {
            SCOPED_TRACE(testing::Message() << "type " << type << ": " << row.width << " x "
                                            << row.height << ", " << row.bits);
            const Bytes file = type == 7 ? tgaFile(3, 3, 24) : dibFile(3, 3, 24);
            const Made image({file, type, 0, row.width, row.height, row.bits});
            ASSERT_NE(image.get(), nullptr);
            EXPECT_EQ(image->width, row.width);
            EXPECT_EQ(image->height, row.height);
            EXPECT_EQ(hasAllPixels(*image.get()), type == 7 ? row.tgaIsEnough : row.dibIsEnough);
        }
    // The top rows of a higher image, the left columns of a wider one.
    const Made low({dibFile(2, 3, 24), 8, 4, 1, 1, 24});
    ASSERT_TRUE(low.get() != nullptr && hasAllPixels(*low.get()));
    EXPECT_EQ(Bytes(low->bytes().begin(), low->bytes().begin() + 3), (Bytes{17, 18, 19}));
}

TEST_F(TextureFileTest, ReadsADibByItsHeightAndSizeAlone) {
    const struct {
        const char* name;
        size_t offset;
        uint32_t value;
        bool isMade, isEnough;
    } rows[] = {
        {"another header's size", 0, 108, true, true},
        {"another width", 4, 77, true, true},
        {"another depth", 14, 8, true, true},
        {"a compression", 16, 1, true, true},
        {"fewer rows", 8, 2, true, false},
        {"shorter rows", 20, 3 * 8, true, false},
        {"rows of no length", 20, 2, true, false},
        {"no rows", 8, 0, false, false},
        {"rows downwards", 8, static_cast<uint32_t>(-3), false, false},
        {"rows past the end", 20, 3 * 16, false, false},
        {"huge rows", 20, 0xffffffff, false, false},
    };
    for (const auto& row : rows) {
        Bytes file = dibFile(3, 3, 24);
        put(file, row.offset, row.value);
        const Made image({file, 8, 0, 3, 3, 24});
        ASSERT_EQ(image.get() != nullptr, row.isMade) << row.name;
        if (row.isMade) {
            EXPECT_EQ(hasAllPixels(*image.get()), row.isEnough) << row.name;
        }
    }
    // Without a size the rows are as long as width and depth of the header say.
    const struct {
        const char* name;
        uint32_t width, height;
        bool isMade;
    } unsizedRows[] = {{"as they are", 3, 3, true},
                       {"negative width", static_cast<uint32_t>(-3), 3, true},
                       {"huge width", 0x7fffffff, 3, false},
                       {"huge height", 3, 0x7fffffff, false}};
    for (const auto& row : unsizedRows) {
        Bytes file = dibFile(3, 3, 24);
        put(file, 4, row.width);
        put(file, 8, row.height);
        put<uint32_t>(file, 20, 0);
        EXPECT_EQ(Made({file, 8, 0, 3, 3, 24}).get() != nullptr, row.isMade) << row.name;
    }
}

TEST_F(TextureFileTest, ReadsPalettesThatBeginAtAnyPixelValue) {
    const Bytes plain = {0, 0, 0, 3, 2, 1, 6, 5, 4, 0, 0, 0};
    const struct {
        const char* name;
        uint8_t start, startHigh; ///< of the palette
        Bytes values;
        Bytes pixels;
    } rows[] = {
        {"at 1", 1, 0, {0, 1, 2, 3}, plain},
        {"at 254", 254, 0, {253, 254, 255, 0}, plain},
        {"beyond all values", 254, 255, {253, 254, 255, 0}, Bytes(12)},
        {"to the last entry of a palette", 255, 255, {253, 254, 255, 0}, Bytes(12)},
    };
    for (const auto& row : rows)
        for (const bool runs : {false, true}) {
            TgaBytes tga{.imageType = 1,
                         .width = 2,
                         .height = 2,
                         .bitsPerPixel = 8,
                         .descriptor = 0x20,
                         .id = {9, 9},
                         .palette = counting(6),
                         .paletteStart = row.start,
                         .data = row.values};
            if (runs) {
                tga.imageType |= 8;
                tga.data.insert(tga.data.begin(), 3);
            }
            Bytes file = tga.file();
            file[4] = row.startHigh;
            const Made image({file, 7, 0, 2, 2, 24});
            ASSERT_NE(image.get(), nullptr) << row.name;
            EXPECT_EQ(image->bytes(), row.pixels) << row.name << ", runs " << runs;
        }
}

TEST_F(TextureFileTest, PadsTheRowsOfADibThatDoesNotSayItsSize) {
    Bytes unsized = dibFile(1, 2, 24);
    put<uint32_t>(unsized, 20, 0); // uncompressed bitmaps need not
    const Made image({unsized, 8, 4, 1, 2, 24});
    ASSERT_NE(image.get(), nullptr);
    EXPECT_EQ(image->bytes(), (Bytes{5, 6, 7, 1, 2, 3}));
}

} // namespace
} // namespace ogl::test
