// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A module with one function and no resources.
extern "C" int oglTestAnswer();

extern "C" int oglTestAnswer() {
    return 42;
}
