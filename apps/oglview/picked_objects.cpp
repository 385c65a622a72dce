// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/picked_objects.h"

#include "ogl/ogl.h"
#include "platform/win32.h"

namespace oglview {

std::vector<int> pickedObjects(ogl::SCENE& scene, Size view, int x, int y) {
    int* numbers = nullptr;
    int count = 0;
    d3_GetPickedObjects(&scene, view.width, view.height, x, y, &numbers, &count);
    std::vector<int> result(numbers, numbers + count);
    GlobalFree(numbers);
    return result;
}

} // namespace oglview
