// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_batches.h"
#include "bench_export.h"
#include "bench_frame.h"

#include <cstdio>
#include <cstring>

namespace {

int usage() {
    std::puts("Usage: ogl_bench [batches] [export] [frame]\n\n"
              "Measures all, or what is named. One line per figure: name, value, unit.");
    return 0;
}

bool isWanted(int argc, char** argv, const char* name) {
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], name) == 0)
            return true;
    return argc == 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--help") == 0)
        return usage();
    if (isWanted(argc, argv, "batches"))
        ogl::bench::benchBatches();
    if (isWanted(argc, argv, "export"))
        ogl::bench::benchExport();
    if (isWanted(argc, argv, "frame") && !ogl::bench::benchFrame()) {
        std::fputs("ogl_bench: no view can be made to measure frames in\n", stderr);
        return 1;
    }
    return 0;
}
