// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"

#include <set>
#include <string>

namespace oglview {

/// Which objects a person points at and has selected. Shows it in the scene: the object under the
/// pointer is marked and named beside it, the selected ones are highlighted.
class ObjectMarks {
  public:
    explicit ObjectMarks(ogl::host::SceneBuilder& builder) : builder_(builder) {}

    /// The pointer is at pixel (x, y) of the view, over the object (kNone: over nothing). Returns
    /// whether the picture changes.
    bool pointAt(ogl::host::ObjectId object, int x, int y);
    /// Selects the object under the pointer, or nothing; with `add` it joins the selected ones, or
    /// leaves them.
    void select(bool add);
    /// Hides the name until the pointer moves on.
    void hideName();

    ogl::host::ObjectId pointedAt() const { return pointed_; }
    const std::set<ogl::host::ObjectId>& selected() const { return selected_; }
    /// The object's name, or its number when it has none.
    std::string nameOf(ogl::host::ObjectId object) const;

  private:
    void highlight(ogl::host::ObjectId object);

    ogl::host::SceneBuilder& builder_;
    ogl::host::ObjectId pointed_ = ogl::host::kNone;
    std::set<ogl::host::ObjectId> selected_;
};

} // namespace oglview
