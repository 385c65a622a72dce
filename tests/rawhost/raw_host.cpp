// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A host compiled without the library's headers: prototypes and record offsets written by hand. It
// calls every exported function over and over and looks after each call whether the stack pointer
// is where it was. On 32-bit systems the stack is aligned to 4 bytes only, as in older hosts.
//   ogl_raw_host FOLDER    for settings, log and output; prints "done" when all is well
#include "rawhost/raw_calls.h"
#include "rawhost/raw_scene.h"
#include "rawhost/raw_system.h"

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>

namespace {

/// Each function is called this often at least, d3_Create excepted. Only systems of 32 bits have
/// calling conventions to get wrong.
constexpr int kRounds = sizeof(void*) == 4 ? 10000 : 1000;
/// A view costs 200 ms on a software renderer: its OpenGL contexts and devices, and its renderer.
constexpr int kViewRounds = 20;
/// Files cost 4 ms each: the calls between write into a folder that is not there.
constexpr int kRoundsPerFile = 100;
constexpr int kSize = 16;

RawCalls calls;
int round = 0;

[[noreturn]] void fail(const std::string& what) {
    std::printf("round %d: %s\n", round, what.c_str());
    std::fflush(stdout);
    std::_Exit(1);
}

void require(bool condition, const char* what) {
    if (!condition)
        fail(what);
}

/// Calls `function` from a stack that is aligned anew in each round.
template <class Function, class... Arguments>
__attribute__((noinline)) auto call(const char* name, Function function, Arguments... arguments) {
    // Kept in use, so that the room stays.
    volatile char* room =
        static_cast<volatile char*>(__builtin_alloca(4 + 4 * static_cast<size_t>(round % 4)));
    room[0] = 0;
    const uintptr_t before = stackPointer();
    if constexpr (std::is_void_v<decltype(function(arguments...))>) {
        function(arguments...);
        if (stackPointer() != before)
            fail(std::string(name) + " leaves the stack pointer elsewhere");
    } else {
        const auto result = function(arguments...);
        if (stackPointer() != before)
            fail(std::string(name) + " leaves the stack pointer elsewhere");
        return result;
    }
}
#define CALL(function, ...) call(#function, calls.function __VA_OPT__(, ) __VA_ARGS__)

void makeLists() {
    unsigned char list[44];
    std::memset(list, 0xee, sizeof list);
    CALL(listCreate, static_cast<void*>(list), 7, 14);
    require(get<int32_t>(list, 0) == 0 && get<int16_t>(list, 4) == 0 &&
                get<int16_t>(list, 6) == 7 && get<int32_t>(list, 8) == 0 &&
                get<int16_t>(list, 12) == 14 && get<int16_t>(list, 14) == 0 &&
                get<uint32_t>(list, 16) == 0 && list[20] == 0xee,
            "LIST::Create writes other fields");
    CALL(vlistCreate, static_cast<void*>(list), 5, 64, 3);
    require(get<int16_t>(list, 6) == 5 && get<int16_t>(list, 12) == 8 &&
                get<int16_t>(list, 26) == 15 && get<int16_t>(list, 32) == 64 && list[40] == 0xee,
            "VLIST::Create writes other fields");
}

void useLists() {
    unsigned char index[8];
    std::memset(index, 0xee, sizeof index);
    void* const clusters = raw.scene + 17113;
    require(CALL(useClusterIndex, clusters, static_cast<void*>(index), 1) == raw.faces + 64 &&
                get<int32_t>(index, 0) == 1 && get<int32_t>(index, 4) == 1,
            "VLIST::UseCluster(INDEX*) finds another item");
    require(CALL(useClusterIndex, clusters, static_cast<void*>(index), 2) == nullptr &&
                get<int32_t>(index, 0) == 1,
            "VLIST::UseCluster(INDEX*) goes beyond its list");
    int32_t count = -1;
    require(CALL(useClusterCount, clusters, 0, &count) == raw.faces && count == 1,
            "VLIST::UseCluster(long*) finds another item");
    require(CALL(useClusterCount, clusters, -1, &count) == nullptr && count == 0,
            "VLIST::UseCluster(long*) goes beyond its list");
    void* const scene = raw.scene;
    require(CALL(usePath, scene, -2, &count) == raw.pathPoints + 2 * 14 && count == 3,
            "SCENE::UsePath misses the current path");
    require(CALL(usePath, scene, 2, &count) == nullptr && count == 0,
            "SCENE::UsePath goes beyond its list");
    unsigned char cursor[8] = {1, 2, 3, 4, 9, 9, 9, 9}, source[4] = {5, 6, 7, 8};
    require(CALL(assignCursor, static_cast<void*>(cursor), static_cast<const void*>(source)) ==
                    cursor &&
                std::memcmp(cursor, source, 4) == 0 && cursor[4] == 9,
            "CWaitCursor::operator= copies something else");
}

void pickAndLoad() {
    int32_t* numbers = nullptr;
    int count = -1;
    void* const scene = raw.scene;
    require(CALL(pickedObjects, scene, kSize, kSize, kSize / 2, kSize / 2, &numbers, &count) == 1 &&
                count == 2 && numbers[0] == 0 && numbers[1] == 1,
            "d3_GetPickedObjects misses the squares");
    require(freeBlock(numbers), "the picked objects are not in global memory");
    require(CALL(pickedObjects, scene, kSize, kSize, 1, 1, &numbers, &count) == 1 && count == 0,
            "d3_GetPickedObjects finds something in the corner");
    freeBlock(numbers);
    require(CALL(textureFromFile) == 0, "d3_CreateTextureFromFile made something");
    unsigned char dib[40 + 8] = {};
    put<int32_t>(dib, 0, 40);
    put<int32_t>(dib, 4, 1);
    put<int32_t>(dib, 8, 2);
    put<int16_t>(dib, 12, 1);
    put<int16_t>(dib, 14, 24);
    unsigned char slot[4];
    void* const image =
        CALL(textureFromMemory, static_cast<void*>(nullptr), static_cast<const void*>(dib),
             static_cast<int>(sizeof dib), 0, 8, 1, 2, 24);
    require(image != nullptr, "d3_CreateTextureFromFileInMemory refuses a bitmap");
    putAddress(slot, 0, image);
    CALL(releasePointer, static_cast<void*>(nullptr), static_cast<void*>(slot), 1);
    require(get<uint32_t>(slot, 0) == 0, "d3_ReleasePointer leaves the slot");
    CALL(releasePointer, static_cast<void*>(nullptr), static_cast<void*>(slot), 5);
}

/// The path in `folder`, or one that nothing can be written to.
std::string pathFor(const std::string& folder, const char* name) {
    return folder + (round % kRoundsPerFile == 0 ? "/" : "/missing/") + name;
}

/// Whether the file holds what this round should have written, -1 for any number of bytes.
bool isWritten(const std::string& path, long bytes) {
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr)
        return round % kRoundsPerFile != 0;
    std::fseek(file, 0, SEEK_END);
    const long size = std::ftell(file);
    std::fclose(file);
    std::remove(path.c_str());
    return bytes < 0 ? size > 0 : size == bytes;
}

void exportScene(const std::string& folder) {
    const std::string path = pathFor(folder, "scene.js");
    const int written = CALL(exportJS, static_cast<void*>(raw.scene), path.c_str(), 320, 200);
    require(written == (round % kRoundsPerFile == 0) && isWritten(path, -1),
            "d3_ExportJS writes nothing, or where it cannot");
}

void checkPicture(const unsigned char* pixels) {
    const unsigned char* const middle = pixels + 3 * (kSize * (kSize / 2) + kSize / 2);
    require(pixels[0] == 120 && pixels[1] == 80 && pixels[2] == 40, "the background is missing");
    require(middle[0] == 255 && middle[1] == 255 && middle[2] == 255, "the square is missing");
}

void drawPictures(void* view, void* bitmap, unsigned char* pixels) {
    void* const scene = raw.scene;
    require(CALL(drawInDibSection, view, scene, 1u, bitmap) == 1, "d3_DrawInDibSection");
    checkPicture(pixels);
    std::memset(pixels, 0, 3 * kSize * kSize);
    require(CALL(drawInWindow, view, scene, 1u, 1, static_cast<void*>(nullptr), bitmap) == 1,
            "d3_DrawInWindow");
    checkPicture(pixels);
}

void readInput(void* view) {
    unsigned char state[272 + 8];
    std::memset(state, 0xee, sizeof state);
    require(CALL(inputState, view, static_cast<void*>(state)) == 1 && state[12] != 0xee &&
                state[271] != 0xee && state[272] == 0xee,
            "di_GetState does not fill 272 bytes");
}

void drawFile(void* view, const std::string& folder) {
    const std::string path = pathFor(folder, "raw.bmp");
    require(CALL(drawInFile, view, static_cast<void*>(raw.scene), 1u, kSize, kSize, path.c_str()) ==
                    1 &&
                isWritten(path, 54 + 3 * kSize * kSize),
            "d3_DrawInFile writes another file");
}

void handBack() {
    for (int object = 0; object < 2; ++object)
        for (const auto& [offset, kind] : {std::pair{4, 2}, {8, 3}, {16, 3}})
            CALL(releasePointer, static_cast<void*>(nullptr),
                 static_cast<void*>(raw.cache + 24 * object + offset), kind);
}

void* makeView(const std::string& folder) {
    const std::string settings = folder + "\\space.ini";
    void* const view = CALL(create, static_cast<void*>(nullptr), 2u, settings.c_str());
    require(view != nullptr, "there is no view");
    return view;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    const std::string folder = argv[1];
    require(loadOgl(), "ogl.dll cannot be loaded");
    if (const char* missing = findRawCalls(calls))
        fail(std::string("there is no ") + missing);
    fillRawScene();
    unsigned char* pixels = nullptr;
    void* const bitmap = makeBitmap(kSize, kSize, pixels);
    for (round = 0; round < kRounds; ++round) {
        makeLists();
        useLists();
        pickAndLoad();
        exportScene(folder);
        CALL(release, static_cast<void*>(nullptr));
    }
    void* const views[] = {makeView(folder), makeView(folder)};
    for (round = 0; round < kRounds; ++round) {
        drawPictures(views[round % 2], bitmap, pixels);
        readInput(views[round % 2]);
    }
    for (round = 0; round < kRounds; ++round)
        drawFile(views[round % 2], folder);
    handBack();
    for (void* const view : views)
        CALL(release, view);
    for (round = 0; round < kViewRounds; ++round) {
        void* const view = makeView(folder);
        drawPictures(view, bitmap, pixels);
        handBack();
        CALL(release, view);
    }
    deleteBitmap(bitmap);
    unloadOgl();
    std::puts("done");
    return 0;
}
