// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The one place where stb_image_write is compiled.
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STBI_WRITE_NO_STDIO
#include <stb_image_write.h>
