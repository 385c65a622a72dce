// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The smallest host with a window: fills the scene record by hand with a small house and lets
// ogl.dll draw it. A click names what lies there, nearest first; S writes house.bmp. With an
// argument it resizes, clicks and saves by itself, and ends.
#include "ogl/ogl.h"

#include <windows.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <utility>
#include <vector>

using namespace ogl;

namespace {

constexpr const char* kNames[] = {"walls", "door", "roof", "ground"};
constexpr BGR8 kColors[] = {{206, 226, 236}, {48, 74, 116}, {52, 68, 178}, {96, 160, 128}};
constexpr int kObjects = 4, kFaces = 8, kCorners = 34, kTriangles = 18;

struct Shape {
    int object;
    VEC3D inwards;              ///< the normal that points into the body
    std::vector<VEC3F> corners; ///< metres, clockwise seen from outside
};
const Shape kShapes[kFaces] = {
    {0, {0, 1, 0}, {{-3, -2, 0}, {-3, -2, 2.6f}, {3, -2, 2.6f}, {3, -2, 0}}},
    {0, {0, -1, 0}, {{3, 2, 0}, {3, 2, 2.6f}, {-3, 2, 2.6f}, {-3, 2, 0}}},
    {0, {-1, 0, 0}, {{3, -2, 0}, {3, -2, 2.6f}, {3, 0, 4.4f}, {3, 2, 2.6f}, {3, 2, 0}}},
    {0, {1, 0, 0}, {{-3, 2, 0}, {-3, 2, 2.6f}, {-3, 0, 4.4f}, {-3, -2, 2.6f}, {-3, -2, 0}}},
    {1, {0, 1, 0}, {{-2, -2.02f, 0}, {-2, -2.02f, 2}, {-1, -2.02f, 2}, {-1, -2.02f, 0}}},
    {2, {0, .669, -.743}, {{-3, -2.4f, 2.3f}, {-3, 0, 4.46f}, {3, 0, 4.46f}, {3, -2.4f, 2.3f}}},
    {2, {0, -.669, -.743}, {{3, 2.4f, 2.3f}, {3, 0, 4.46f}, {-3, 0, 4.46f}, {-3, 2.4f, 2.3f}}},
    {3, {0, 0, -1}, {{-6, -5, 0}, {-6, 5, 0}, {6, 5, 0}, {6, -5, 0}}},
};

/// The records. Static memory starts as zeros and lies below 4 GiB, where a record can point.
struct House {
    SCENE scene;
    VIEW view;
    OBJECT objects[kObjects];
    CACHEENTRY cache[kObjects];
    INDEX facesOfObject[kObjects] = {{0, 4}, {4, 1}, {5, 2}, {7, 1}};
    MATERIAL materials[kObjects]; // one for each object
    LIGHT sun[1];
    FACE faces[kFaces];
    FACELOOPS loopsOfFace[kFaces];
    LOOP loops[kFaces];
    LOOPSTYLE styles[kFaces];
    INDEX trianglesOfFace[kFaces];
    LOOPPOINT points[kCorners];
    VEC3F triangles[3 * kTriangles];
} house;

template <class T, size_t kCount> LIST listOf(T (&elements)[kCount]) {
    return {kCount, 0, 0, 0, sizeof(T), 0, elements};
}

void fillFaces() {
    const auto mm = [](float metres) { return static_cast<int32_t>(std::lround(1000 * metres)); };
    int point = 0, corner = 0;
    for (int k = 0; k < kFaces; ++k) {
        const auto& [object, inwards, corners] = kShapes[k];
        const int count = static_cast<int>(corners.size());
        house.faces[k].normal = inwards;
        house.faces[k].texCoordIndex = -1;
        house.faces[k].material = static_cast<int16_t>(object);
        house.loopsOfFace[k] = {k, 1};
        house.loops[k] = {point, count};
        house.styles[k].kind = kLoopClosed;
        for (const VEC3F& p : corners)
            house.points[point++].position = {mm(p.x), mm(p.y), mm(p.z)};
        house.trianglesOfFace[k] = {12 * corner, 36 * (count - 2)}; // counted in bytes
        for (size_t last = 2; last < corners.size(); ++last)
            for (const VEC3F& p : {corners[0], corners[last - 1], corners[last]})
                house.triangles[corner++] = p;
    }
}

void fillScene() {
    for (int k = 0; k < kObjects; ++k) {
        house.materials[k].color = kColors[k];
        house.materials[k].brightness = 0.4f; // the colour as given
        house.materials[k].opacity = 1;
        house.materials[k].textureIndex = -1;
        house.materials[k].useCount = static_cast<uint32_t>(house.facesOfObject[k].count);
    }
    fillFaces();
    house.sun[0].target = {0.4f, 0.7f, -0.6f}; // where its light travels
    house.sun[0].color = {0.28f, 0.28f, 0.26f};
    house.view.objectCache = listOf(house.cache);
    GEOMETRY& geometry = house.scene.geometry;
    static LIST objects = listOf(house.objects);
    geometry.objects = &objects;
    geometry.view = &house.view;
    geometry.clusters = {listOf(house.facesOfObject), listOf(house.faces)};
    geometry.faceTriangles.index = listOf(house.trianglesOfFace);
    geometry.faceTriangles.items = {sizeof house.triangles, 0, 0, 0, 1, 0, house.triangles};
    geometry.faceLoops = listOf(house.loopsOfFace);
    geometry.loops = listOf(house.loops);
    geometry.loopStyles = listOf(house.styles);
    geometry.loopPoints = listOf(house.points);
    geometry.materials = listOf(house.materials);
    geometry.lights = listOf(house.sun);
    geometry.unitScale = 1; // loop points in millimetres
    geometry.eye = {5, -11, 4};
    geometry.target = {0, 0, 1.9f};
    geometry.up = {0, 0, 1};
    geometry.fieldOfView = 0.7;
    geometry.lightAmbient = 0.12f;
    geometry.edgeOpacity = 100;
    geometry.backgroundColor = 0xf0dcc8; // red in the low byte
    house.scene.renderMode = kRenderModeShadow;
}

RenderContext* view = nullptr;
constexpr unsigned kDrawing = kDrawFullQuality | kDrawShadows;

void pick(const RECT& client, int x, int y) {
    int *numbers = nullptr, count = 0;
    d3_GetPickedObjects(&house.scene, client.right, client.bottom, x, y, &numbers, &count);
    for (int k = 0; k < count; ++k)
        std::printf("%s%s", k > 0 ? ", " : "", kNames[numbers[k]]);
    std::puts(count > 0 ? "" : "nothing");
    GlobalFree(numbers);
}

/// A picture as large as the window.
void save(const RECT& client) {
    const DWORD bytes = static_cast<DWORD>((client.right * 3 + 3) / 4 * 4 * client.bottom);
    BITMAPINFO info{{40, client.right, client.bottom, 1, 24, BI_RGB, bytes, 0, 0, 0, 0}, {}};
    void* pixels = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    d3_DrawInDibSection(view, &house.scene, kDrawing, bitmap);
    const BITMAPFILEHEADER header{0x4d42, 54 + bytes, 0, 0, 54};
    std::ofstream file("house.bmp", std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), 14);
    file.write(reinterpret_cast<const char*>(&info), 40);
    file.write(static_cast<const char*>(pixels), bytes);
    DeleteObject(bitmap);
}

/// Hands back what the library parked in the records, then the view.
void release() {
    for (CACHEENTRY& entry : house.cache)
        for (auto& [slot, kind] : {std::pair<void*, int>{&entry.meshBatches, kReleaseMeshBatches},
                                   {&entry.otherBatches, kReleaseBatchSet},
                                   {&entry.edgeRecord, kReleaseBatchSet}})
            d3_ReleasePointer(view, static_cast<void**>(slot), kind);
    d3_Release(view);
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    RECT client{};
    GetClientRect(window, &client);
    if (message == WM_PAINT && view != nullptr) {
        d3_DrawInWindow(view, &house.scene, kDrawing, 1, nullptr, nullptr);
        ValidateRect(window, nullptr);
    } else if (message == WM_LBUTTONDOWN)
        pick(client, static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
    else if (message == WM_KEYDOWN && wParam == 'S')
        save(client);
    else if (message == WM_CLOSE)
        release(), DestroyWindow(window);
    else if (message == WM_DESTROY)
        PostQuitMessage(0);
    else
        return DefWindowProcA(window, message, wParam, lParam);
    return 0;
}

} // namespace

int main(int argc, char**) {
    fillScene();
    const WNDCLASSA windowClass{
        CS_HREDRAW | CS_VREDRAW,         procedure, 0,       0,      nullptr, nullptr,
        LoadCursorA(nullptr, IDC_ARROW), nullptr,   nullptr, "House"};
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowExA(0, "House", "A house", WS_OVERLAPPEDWINDOW, 50, 50, 800,
                                        600, nullptr, nullptr, nullptr, nullptr);
    if (window == nullptr || (view = d3_Create(window, 0, "space.ini")) == nullptr)
        return std::puts("no window or no view: see ogl.log"), 1;
    ShowWindow(window, SW_SHOW);
    if (argc > 1) {
        MoveWindow(window, 50, 50, 480, 360, TRUE);
        PostMessageA(window, WM_LBUTTONDOWN, 0, MAKELPARAM(140, 225));
        PostMessageA(window, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
        PostMessageA(window, WM_KEYDOWN, 'S', 0);
        PostMessageA(window, WM_CLOSE, 0, 0);
    }
    for (MSG message; GetMessageA(&message, nullptr, 0, 0) > 0;)
        DispatchMessageA(&message);
    return 0;
}
