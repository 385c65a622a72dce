// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The program's module "hx.dll": the library looks there for a trace function and tells it about
// the making of views. With OGL_DEBUG=1 the trace goes to standard error.
#include "platform/win32.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// The library's texts are Latin-1, terminals take UTF-8.
std::string utf8(const char* latin1) {
    std::string text;
    for (; *latin1 != '\0'; ++latin1) {
        const auto code = static_cast<unsigned char>(*latin1);
        if (code < 0x80) {
            text.push_back(*latin1);
        } else {
            text.push_back(static_cast<char>(0xc0 | code >> 6));
            text.push_back(static_cast<char>(0x80 | (code & 0x3f)));
        }
    }
    return text;
}

} // namespace

extern "C" int WINAPI D3DLL_DEBUG_WriteString(int, const char* operation, const char* phase, int) {
    const char* debug = std::getenv("OGL_DEBUG");
    if (debug != nullptr && std::string(debug) == "1")
        std::fprintf(stderr, "oglview: trace: %s %s\n", utf8(operation).c_str(),
                     utf8(phase).c_str());
    return 1;
}
