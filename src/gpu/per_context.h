// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gl_surface.h"

#include <memory>
#include <vector>

namespace ogl {

/// A part for each OpenGL context, that is, for each window of each view: for objects that contexts
/// do not share, and for those that are the window's own.
template <class Part> class PerContext {
  public:
    /// The current context's, made when it is first asked for. Those of contexts that are gone go.
    Part& here() {
        std::erase_if(parts_, [](const Entry& entry) { return !isContextOpen(entry.context); });
        const unsigned current = currentContextNumber();
        for (const Entry& entry : parts_)
            if (entry.context == current)
                return *entry.part;
        return *parts_.emplace_back(Entry{current, std::make_unique<Part>()}).part;
    }
    void clear() { parts_.clear(); }

  private:
    struct Entry {
        unsigned context; ///< its number
        std::unique_ptr<Part> part;
    };
    std::vector<Entry> parts_;
};

} // namespace ogl
