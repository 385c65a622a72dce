// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "rawhost/raw_calls.h"

#include "rawhost/raw_system.h"

namespace {

template <class Function>
bool find(Function& function, const char*& missing, const char* decorated, const char* plain) {
    void* const address = entry(decorated, plain);
    function = reinterpret_cast<Function>(address);
    if (address == nullptr)
        missing = decorated;
    return address != nullptr;
}

} // namespace

const char* findRawCalls(RawCalls& calls) {
    const char* missing = nullptr;
    const auto plain = [&missing](auto& function, const char* name) {
        return find(function, missing, name, name);
    };
    const bool complete =
        plain(calls.create, "d3_Create") && plain(calls.release, "d3_Release") &&
        plain(calls.drawInWindow, "d3_DrawInWindow") &&
        plain(calls.drawInDibSection, "d3_DrawInDibSection") &&
        plain(calls.drawInFile, "d3_DrawInFile") &&
        plain(calls.pickedObjects, "d3_GetPickedObjects") && plain(calls.exportJS, "d3_ExportJS") &&
        plain(calls.textureFromFile, "d3_CreateTextureFromFile") &&
        plain(calls.textureFromMemory, "d3_CreateTextureFromFileInMemory") &&
        plain(calls.releasePointer, "d3_ReleasePointer") &&
        plain(calls.inputState, "di_GetState") &&
        find(calls.listCreate, missing, "?Create@LIST@@QAGXHH@Z", "LIST_Create") &&
        find(calls.vlistCreate, missing, "?Create@VLIST@@QAGXHHH@Z", "VLIST_Create") &&
        find(calls.useClusterIndex, missing, "?UseCluster@VLIST@@QAGPAXPAUINDEX@@J@Z",
             "VLIST_UseClusterIndex") &&
        find(calls.useClusterCount, missing, "?UseCluster@VLIST@@QAGPAXJPAJ@Z",
             "VLIST_UseClusterCount") &&
        find(calls.usePath, missing, "?UsePath@SCENE@@QAGPAUPOINT3D@@JPAJ@Z", "SCENE_UsePath") &&
        find(calls.assignCursor, missing, "??4CWaitCursor@@QAEAAV0@ABV0@@Z", "CWaitCursor_assign");
    return complete ? nullptr : missing;
}
