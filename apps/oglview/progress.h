// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace oglview {

/// Says on standard error what takes long, when it is a terminal or somebody wants to know.
class Progress {
  public:
    explicit Progress(bool wanted);
    bool shown() const { return shown_; }
    void step(const std::string& what) const;

  private:
    bool shown_;
};

} // namespace oglview
