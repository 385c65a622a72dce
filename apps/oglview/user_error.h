// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace oglview {

/// Something that the user should know, in one line. main() writes it to standard error with the
/// program's name before it and ends with a non-zero status.
struct UserError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace oglview
