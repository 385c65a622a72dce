// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace oglview {

/// Says on standard error what takes long, when somebody wants to know.
class Progress {
  public:
    /// `wanted`: even where nobody looks at a terminal.
    explicit Progress(bool wanted);
    bool shown() const { return shown_; }
    void step(const std::string& what) const;

  private:
    bool shown_;
};

/// Whether standard error is a terminal that a person looks at.
bool errorOutputIsTerminal();

} // namespace oglview
