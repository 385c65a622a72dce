// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Numbers as text with six significant digits, as printf's "%g" writes them in the C locale: 0.5,
// -1.25, 100000, 1e+06, -0. What is no finite number is written as 0, since no program could read
// it.
#pragma once

#include <cstddef>

namespace ogl {

/// Room that the longest number takes, bytes: "-1.23457e-308".
inline constexpr size_t kNumberTextSize = 16;

/// Writes the number at `to`, where kNumberTextSize bytes are free. Returns its end.
char* writeNumber(char* to, float value);
char* writeNumber(char* to, double value);
char* writeNumber(char* to, int value);

} // namespace ogl
