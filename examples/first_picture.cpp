// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The smallest host: a wall with a window opening, drawn into a bitmap. Writes first_picture.bmp.
#include "host/scene_builder.h"
#include "ogl/ogl.h"
#include "platform/win32.h"

#include <cstdio>

int main() {
    ogl::host::SceneBuilder scene;
    ogl::host::Polygon face;
    face.material = scene.addMaterial({});
    face.outline = {{-2, 0, 0}, {2, 0, 0}, {2, 0, 3}, {-2, 0, 3}};
    face.holes = {{{-1, 0, 1}, {1, 0, 1}, {1, 0, 2.2}, {-1, 0, 2.2}}};
    scene.addPolygon(scene.addObject("wall"), face);
    scene.setRenderMode(ogl::kRenderModeDrawing);
    scene.setCamera({{3, -6, 3}, {0, 0, 1.4}});
    scene.build();

    BITMAPINFOHEADER header{sizeof header, 640, 480, 1, 24, BI_RGB, 640 * 480 * 3, 0, 0, 0, 0};
    void* pixels = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&header),
                                      DIB_RGB_COLORS, &pixels, nullptr, 0);
    ogl::RenderContext* view = d3_Create(nullptr, 0, "space.ini");
    if (view == nullptr)
        return std::puts("no view: see ogl.log"), 1;
    d3_DrawInDibSection(view, scene.scene(), ogl::kDrawFullQuality, bitmap);
    for (const auto& parked : scene.librarySlots())
        d3_ReleasePointer(view, parked.slot, parked.releaseKind);
    d3_Release(view);

    const unsigned char fileHeader[14] = {'B', 'M', 0x36, 0x10, 0x0E, 0, 0, 0, 0, 0, 54};
    std::FILE* file = std::fopen("first_picture.bmp", "wb");
    std::fwrite(fileHeader, sizeof fileHeader, 1, file);
    std::fwrite(&header, sizeof header, 1, file);
    std::fwrite(pixels, header.biSizeImage, 1, file);
    DeleteObject(bitmap);
    return std::fclose(file);
}
