// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/batches.h"

#include "platform/record_object.h"
#include "scene/record_views.h"

namespace ogl {

MeshBatchList* makeMeshBatchList() {
    return makeRecordObject<MeshBatchList>(memory32::Kind::MeshBatchList);
}

BatchSet* makeBatchSet() {
    return makeRecordObject<BatchSet>(memory32::Kind::BatchSet);
}

MeshBatchList* liveMeshBatches(MeshBatchList* address) {
    return liveRecordObject(address, memory32::Kind::MeshBatchList);
}

BatchSet* liveBatchSet(BatchSet* address) {
    return liveRecordObject(address, memory32::Kind::BatchSet);
}

void releaseMeshBatches(Ptr32<MeshBatchList>& slot) {
    releaseRecordObject(slot, memory32::Kind::MeshBatchList);
}

void releaseBatchSet(Ptr32<BatchSet>& slot) {
    releaseRecordObject(slot, memory32::Kind::BatchSet);
}

void releaseBatchesOf(CACHEENTRY& entry) {
    releaseMeshBatches(entry.meshBatches);
    releaseBatchSet(entry.edgeRecord);
    releaseBatchSet(entry.otherBatches);
    entry.reserved0c = 0;
    entry.edgeCount = 0;
}

MeshBatchList* ParkedLists::park(CACHEENTRY& entry) {
    MeshBatchList* list = makeMeshBatchList();
    entry.meshBatches = list;
    if (list == nullptr)
        return nullptr;
    list->build = build_;
    ++count_;
    return list;
}

bool ParkedLists::areIn(const VIEW* view) const {
    int found = 0;
    for (int k = 0; view != nullptr && k < cacheEntryCount(*view); ++k) {
        const MeshBatchList* list = liveMeshBatches(cacheEntry(*view, k)->meshBatches.get());
        if (list != nullptr && list->build != build_)
            return false;
        found += list != nullptr ? 1 : 0;
    }
    return found == count_;
}

} // namespace ogl
