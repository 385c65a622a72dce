// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#define STB_IMAGE_IMPLEMENTATION
#include <stb_image.h>
