// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Light that wraps round a surface: 1 / (1 + wrap) where it comes straight, 0 where the cosine of
// its angle is -wrap.
float wrapLight(float cosa, float wrap) {
    return max(cosa + wrap, 0.0) / (1.0 + wrap) * (1.0 / (wrap + 1.0));
}
