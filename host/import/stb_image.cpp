// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The one place of the host side where stb_image is compiled.
#define STB_IMAGE_IMPLEMENTATION
#define STBI_NO_HDR
#include <stb_image.h>
