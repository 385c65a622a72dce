// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ogl::host {

/// The bytes of the file that a model in folder `folder` calls `name`: there, or by its last part
/// alone, with slashes either way and in any spelling of upper and lower case. Returns an empty
/// string, or why not.
std::string readModelFile(const std::string& folder, const std::string& name,
                          std::vector<uint8_t>& bytes);

} // namespace ogl::host
