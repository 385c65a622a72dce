// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Helpers on the host's records, exported under the names and calling conventions that a host's
// compiler gives to member functions; the export definition file maps the names.
#include "platform/win32.h"
#include "scene/record_helpers.h"

using namespace ogl;

/// The host's hour-glass cursor: one 32-bit member.
struct CWaitCursor {
    int32_t member;
};

extern "C" {

void __stdcall LIST_Create(LIST* list, int growBy, int elementSize) {
    if (list != nullptr)
        createList(*list, growBy, elementSize);
}

void __stdcall VLIST_Create(VLIST* list, int growBy, int itemSize, int itemsPerCluster) {
    if (list != nullptr)
        createClusterList(*list, growBy, itemSize, itemsPerCluster);
}

void* __stdcall VLIST_UseClusterIndex(VLIST* list, INDEX* out, LONG cluster) {
    return list != nullptr ? useCluster(*list, out, static_cast<int32_t>(cluster)) : nullptr;
}

void* __stdcall VLIST_UseClusterCount(VLIST* list, LONG cluster, LONG* count) {
    int32_t items = 0;
    void* first =
        list != nullptr ? useCluster(*list, static_cast<int32_t>(cluster), &items) : nullptr;
    if (count != nullptr)
        *count = items;
    return first;
}

void* __stdcall SCENE_UsePath(SCENE* scene, LONG path, LONG* count) {
    int32_t points = 0;
    void* first = scene != nullptr ? usePath(*scene, static_cast<int32_t>(path), &points) : nullptr;
    if (count != nullptr)
        *count = points;
    return first;
}

CWaitCursor* __thiscall CWaitCursor_assign(CWaitCursor* self, const CWaitCursor* source) {
    if (self != nullptr && source != nullptr)
        self->member = source->member;
    return self;
}

} // extern "C"
