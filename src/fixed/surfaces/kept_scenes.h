// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "render/process_state.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace ogl {

/// Scenes of which a renderer keeps what it has built, so that views may show several in turn.
inline constexpr size_t kMostKeptScenes = 4;

/// What a renderer keeps of the scenes that it drew last. A scene is known by its record's address,
/// which is compared and never read: the host may have freed that record by now, and may have
/// another one in its place.
template <class Kept> class KeptScenes {
  public:
    /// What is kept of the scene that is drawn now, with nothing built when the scene is new.
    /// `fits` tells of a scene that was not drawn last whether what is kept of it still belongs to
    /// the record. While the process-wide mark is set nothing is kept of other scenes: it may speak
    /// of any.
    template <class Fits> Kept& of(const SCENE& scene, const Fits& fits) {
        if (processState().sceneChanged != 0)
            std::erase_if(entries_, [&](const Entry& entry) { return entry.scene != &scene; });
        if (!entries_.empty() && entries_.front().scene == &scene)
            return *entries_.front().kept;
        const auto found = std::ranges::find(entries_, &scene, &Entry::scene);
        Entry entry{&scene, nullptr};
        if (found != entries_.end()) {
            if (fits(std::as_const(*found->kept)))
                entry.kept = std::move(found->kept);
            entries_.erase(found);
        }
        if (entry.kept == nullptr)
            entry.kept = std::make_unique<Kept>();
        entries_.insert(entries_.begin(), std::move(entry));
        entries_.resize(std::min(entries_.size(), kMostKeptScenes));
        return *entries_.front().kept;
    }
    void clear() { entries_.clear(); }

  private:
    struct Entry {
        const SCENE* scene;
        std::unique_ptr<Kept> kept;
    };
    std::vector<Entry> entries_; ///< the scene drawn last first
};

} // namespace ogl
