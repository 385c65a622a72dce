// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The part of the command line that says how a model is drawn.
#pragma once

#include "oglview/options.h"

#include <string>

namespace CLI {
class App;
}

namespace oglview {

/// A day and a place as they are written.
struct MomentTexts {
    std::string date;
    std::string time;
    DayAndPlace moment; ///< its numbers

    /// Adds --date, --time (when `withTime`), --lat, --lon and --north.
    void addTo(CLI::App& command, bool required, bool withTime);
    /// Throws UserError.
    DayAndPlace understand() const;
};

/// What the options of a style are read into before they are understood.
struct StyleTexts {
    std::string mode = "drawing";
    std::string background;
    std::string sun;
    std::string surfaces = "color";
    std::string interior;
    MomentTexts moment;
    int lineWeight = 0;
    int edgeOpacity = 0;
    bool noShadows = false;
    PhotoLook photo;
    StyleOptions style;
    LibraryOptions library;

    /// How the surfaces and edges of every mode look, and how the library is configured.
    void addTo(CLI::App& command);
    /// Light and tone of photo mode.
    void addPhotoTo(CLI::App& command);
    /// Fills `style` and `library`. Throws UserError.
    void understand(const CLI::App& command);
    /// The same, but for where the sun stands.
    void understandPictures(const CLI::App& command);
};

/// Throws UserError unless low <= value <= high. `name` names the value.
void checkRange(const char* name, double value, double low, double high);

} // namespace oglview
