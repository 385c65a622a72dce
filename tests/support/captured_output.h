// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/temp_folder.h"

#include <string>

namespace ogl::test {

/// Catches what is written to standard output (1) or standard error (2) until stop().
class CapturedOutput {
  public:
    explicit CapturedOutput(int descriptor);
    ~CapturedOutput() { stop(); }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    /// What was written so far, with line ends as LF; from then on output goes where it went.
    std::string stop();

  private:
    TempFolder folder_;
    int descriptor_;
    int saved_;
};

} // namespace ogl::test
