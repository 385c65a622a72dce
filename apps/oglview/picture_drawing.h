// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/drawing_view.h"
#include "oglview/image_file.h"
#include "oglview/loaded_scene.h"
#include "oglview/style_options.h"
#include "platform/win32.h"

namespace oglview {

/// A bitmap of 24 bits that the library draws into.
class DibSection {
  public:
    /// Throws UserError when there is no memory for it.
    DibSection(int width, int height);
    ~DibSection() { DeleteObject(bitmap_); }
    DibSection(const DibSection&) = delete;
    DibSection& operator=(const DibSection&) = delete;

    HBITMAP get() const { return bitmap_; }
    const Picture& picture() const { return picture_; }
    uint8_t* pixels() const { return pixels_; }

  private:
    HBITMAP bitmap_ = nullptr;
    Picture picture_;
    uint8_t* pixels_ = nullptr;
};

/// Draws the scene as the style says. With `progress` shown, says how much of the bitmap is filled.
void drawPicture(const DrawingView& view, LoadedScene& scene, const StyleOptions& style,
                 DibSection& bitmap, const Progress& progress);

} // namespace oglview
