// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches.h"

#include "fixed/record_object.h"

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

} // namespace ogl
