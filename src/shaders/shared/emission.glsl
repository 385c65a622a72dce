// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Strong light pressed together before the tone curve.
float pretonemap(float x) {
    return log(x + 1.0);
}
