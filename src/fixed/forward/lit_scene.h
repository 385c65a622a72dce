// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/forward/portals.h"
#include "fixed/surfaces/scene_batches.h"
#include "render/light.h"

#include <memory>
#include <utility>
#include <vector>

namespace ogl {

/// What renderers with shadows keep of one scene.
struct LitScene {
    SceneBatches batches;
    std::vector<PortalRecord> portals;
    std::unique_ptr<SunLight> sun; ///< null without one
    LightList lamps;               ///< and portals' lights, where the renderer has any
    bool lampsKnown = false;       ///< collected since the scene is kept
    bool shadowsDirty = false;     ///< the shadow maps show something else than the scene

    /// True when other meshes are drawn than when it was asked last: maps of those are no use.
    bool takesOtherMeshes() { return takes(mapGeneration_); }
    /// The same for portals, which are found with each build.
    bool takesOtherPortals() { return takes(portalGeneration_); }
    /// True when the view has another size than when it was asked last.
    bool takesOtherSize(int width, int height) {
        const std::pair size{width, height};
        return std::exchange(viewSize_, size) != size;
    }

  private:
    bool takes(int& generation) {
        return std::exchange(generation, batches.generation()) != batches.generation();
    }

    int mapGeneration_ = 0;
    int portalGeneration_ = 0;
    std::pair<int, int> viewSize_{0, 0};
};

} // namespace ogl
