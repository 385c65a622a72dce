// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/captured_output.h"

#include "support/system.h"

namespace ogl::test {

CapturedOutput::CapturedOutput(int descriptor)
    : descriptor_(descriptor), saved_(redirectDescriptor(descriptor, folder_.file("output"))) {}

std::string CapturedOutput::stop() {
    if (saved_ >= 0)
        restoreDescriptor(descriptor_, saved_);
    saved_ = -1;
    std::string text = readFile(folder_.file("output"));
    std::erase(text, '\r');
    return text;
}

} // namespace ogl::test
