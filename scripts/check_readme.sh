#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
#
# Fails when the example in the README is not the one that is compiled and tested.
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
shown=$(sed -n '/^```cpp$/,/^```$/p' README.md | sed '1d;$d')
compiled=$(sed -n '/^#include/,$p' examples/first_picture.cpp)
diff <(printf '%s\n' "$compiled") <(printf '%s\n' "$shown")
