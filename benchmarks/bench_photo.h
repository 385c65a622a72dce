// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// Frames of the photo renderer at 1024 x 768: time per pass, the plainest frame to a program that
/// draws the G-buffer and puts the picture together, and what many objects and materials cost the
/// processor. False when no view can be made.
bool benchPhoto();

} // namespace ogl::bench
