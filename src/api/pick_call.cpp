// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/pick_call.h"

#include "platform/win32.h"

namespace ogl {

void handOverPicked(const SCENE* scene, const ViewPixel& pixel, int** result, int* hitCount) {
    if (hitCount != nullptr)
        *hitCount = 0;
    if (result != nullptr)
        *result = nullptr;
    std::vector<PickedObject> picked;
    if (scene != nullptr)
        picked = pickObjects(*scene, pickRay(*scene, pixel));
    if (result != nullptr) {
        auto* block = static_cast<int*>(GlobalLock(GlobalAlloc(0, picked.size() * sizeof(int))));
        if (block == nullptr)
            return;
        for (size_t k = 0; k < picked.size(); ++k)
            block[k] = picked[k].object;
        *result = block;
    }
    if (hitCount != nullptr)
        *hitCount = static_cast<int>(picked.size());
}

} // namespace ogl
