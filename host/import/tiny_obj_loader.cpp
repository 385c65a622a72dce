// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#define TINYOBJLOADER_IMPLEMENTATION
#define TINYOBJLOADER_USE_DOUBLE
#include <tiny_obj_loader.h>
